# Used by ./run, ./test and ./package: packages and builds.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# install_missing PACKAGE...: installs the Debian packages that are missing.
install_missing() {
  local missing=()
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing; install them as root: ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -q >/dev/null
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libgmime-3.0-dev libpugixml-dev
  libssl-dev libsqlite3-dev zlib1g-dev liblzma-dev libzstd-dev libetpan-dev
  qtkeychain-qt6-dev publicsuffix)

# The tests need their library, a mail server to read from, and programs that read what is written
# for others.
test_packages=(libgtest-dev dovecot-imapd graphviz python3-networkx python3-igraph python3-vobject)

# Packages for building for Windows and running there. The test library is built from its sources.
windows_packages=(libgtest-dev g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine wine64)

# Packages for ./package: package builders, image tools and the help compiler.
packaging_packages=(nsis librsvg2-bin icoutils netpbm dpkg-dev file fp-utils qt6-qpa-plugins)

# build PRESET TARGET...: builds the targets and prints the output only when something fails.
build() {
  local preset=$1 log=build/$1/build.log
  shift
  mkdir -p "build/$preset"
  echo "Building for $preset (log: $log)"
  { cmake --preset "$preset" && cmake --build --preset "$preset" --target "$@"; } >"$log" 2>&1 || {
    tail -n 60 "$log" >&2
    exit 1
  }
}
