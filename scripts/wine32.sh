#!/usr/bin/env bash
# wine32.sh PROGRAM [ARGUMENT...]: runs a 32-bit Windows program under Wine, without a display.
# wine32.sh --end: ends the processes that earlier runs kept.
#
# A 64-bit Debian has no 32-bit Wine. So Wine runs in an i386 system in the build folder, which is
# created on first use (about 1 GB, needs root) and sees the project under its usual path. Only its
# own processes see the mounts, which vanish with them: deleting the build folder cannot delete the
# project through a mount.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export PELK_WINE_ROOT="$root/build/windows32/i386" WINEARCH=win32
export WINEPREFIX="${WINEPREFIX:-$root/build/windows32/prefix}"

make_system() {
  echo "Making an i386 system in $PELK_WINE_ROOT" >&2
  rm -rf "$PELK_WINE_ROOT"
  debootstrap --arch=i386 --variant=minbase --include=wine,wine32,ca-certificates bookworm \
    "$PELK_WINE_ROOT" >"$PELK_WINE_ROOT.log" 2>&1 || {
    tail -n 20 "$PELK_WINE_ROOT.log" >&2
    exit 1
  }
  mkdir -p "$PELK_WINE_ROOT$root"
  touch "$PELK_WINE_ROOT/made"
}

if [ "$1" = --mounted ]; then
  shift
  mount -t proc proc "$PELK_WINE_ROOT/proc"
  mount --bind /dev "$PELK_WINE_ROOT/dev"
  mount --bind "$root" "$PELK_WINE_ROOT$root"
  exec "$root/scripts/wine.sh" "$@"
fi
[ "$1" != --end ] || [ -e "$PELK_WINE_ROOT/made" ] || exit 0
mkdir -p "$(dirname "$PELK_WINE_ROOT")"
exec 8>"$PELK_WINE_ROOT.lock"
flock 8
[ -e "$PELK_WINE_ROOT/made" ] || make_system
exec 8>&-
exec unshare --mount --propagation private "${BASH_SOURCE[0]}" --mounted "$@"
