#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine, without a display.
# wine.sh --end: ends what earlier runs have left running, so that a next one would start quickly.
#
# The prefix is made on first use: $WINEPREFIX, else one in the build folder. Where $PELK_WINE_ROOT
# names a system in a folder, Wine is the one of that system.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export WINEPREFIX="${WINEPREFIX:-$root/build/windows/prefix}" WINEARCH="${WINEARCH:-win64}"
export WINEDEBUG=-all
# File names are UTF-8 whatever the caller's locale is.
export LC_ALL=C.UTF-8
# A crash ends the program at once instead of waiting in a debugger.
export WINEDLLOVERRIDES="winedbg.exe=d"

# Under a random layout of its memory Wine finds a place that it needs taken, once in some thousand
# starts, and ends without a word.
inside=()
setarch -R true 2>/dev/null && inside=(setarch -R)
[ -z "${PELK_WINE_ROOT:-}" ] || inside+=(chroot "$PELK_WINE_ROOT" env -C "$PWD")
wine=("${inside[@]}" wine)
wineserver=("${inside[@]}" wineserver)

# What runs here must not hold on to the files of the one who called.
quietly() {
  "$@" </dev/null >/dev/null 2>&1 9>&-
}

end_session() {
  quietly "${wineserver[@]}" -k || true
  "${wineserver[@]}" -w
}

make_prefix() {
  echo "Making the Wine prefix $WINEPREFIX" >&2
  quietly "${wine[@]}" wineboot -i
  quietly "${wine[@]}" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /t REG_SZ /d null /f
  # The setting holds from the next session on.
  end_session
  touch "$WINEPREFIX/made"
}

# While any program runs, the next one starts in a tenth of a second. So an idle one is kept for a
# while, started after Wine's own services, which would otherwise keep the caller's files open.
keep_warm() {
  local holder="$WINEPREFIX/holder.pid"
  [ -e "$holder" ] && kill -0 "$(cat "$holder")" 2>/dev/null && return
  quietly "${wine[@]}" cmd /c exit
  setsid timeout 900 "${wine[@]}" notepad </dev/null >/dev/null 2>&1 9>&- &
  echo $! >"$holder"
}

if [ "$1" = --end ]; then
  if [ -d "$WINEPREFIX" ]; then
    end_session
    rm -f "$WINEPREFIX/holder.pid"
  fi
  exit
fi
mkdir -p "$(dirname "$WINEPREFIX")"
exec 9>"$WINEPREFIX.lock"
flock 9
[ -e "$WINEPREFIX/made" ] || make_prefix
keep_warm
exec "${wine[@]}" "$@" 9>&-
