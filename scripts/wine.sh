#!/usr/bin/env bash
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine, without a display. wine.sh
# --end: ends the processes that earlier runs kept for a quick start.
#
# The prefix is created on first use: $WINEPREFIX, else one in the build folder. If $PELK_WINE_ROOT
# names a system in a folder, its Wine is used.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export WINEPREFIX="${WINEPREFIX:-$root/build/windows/prefix}" WINEARCH="${WINEARCH:-win64}"
export WINEDEBUG=-all
# File names are UTF-8 whatever the caller's locale.
export LC_ALL=C.UTF-8
# A crash ends the program at once instead of waiting in a debugger.
export WINEDLLOVERRIDES="winedbg.exe=d"

# With a random memory layout Wine sometimes (about once in a thousand starts) finds an address that
# it needs in use, and exits silently.
inside=()
setarch -R true 2>/dev/null && inside=(setarch -R)
[ -z "${PELK_WINE_ROOT:-}" ] || inside+=(chroot "$PELK_WINE_ROOT" env -C "$PWD")
wine=("${inside[@]}" wine)
wineserver=("${inside[@]}" wineserver)

# Background processes must not keep the caller's files open.
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
  # The setting takes effect in the next session.
  end_session
  touch "$WINEPREFIX/made"
}

# While any program runs, the next one starts in a tenth of a second. So an idle one is kept for a
# while. It is started after Wine's own services, which would otherwise keep the caller's files
# open.
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
