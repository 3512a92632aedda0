# The package for Debian. It is installed only by root and only where no other one is.

target=""

may_install() {
  [ "$(id -u)" -eq 0 ] && [ ! -e /usr/bin/pelk ] &&
    ! dpkg-query -W -f='${db:Status-Status}' pelk 2>/dev/null | grep -qv not-installed
}

unpacks() {
  dpkg-deb -x "$deb" "$work/root"
}

installs() {
  dpkg -i "$deb"
}

# remove_deb: takes out what this test has installed.
remove_deb() {
  [ ! -e "$work/installed" ] || dpkg -P pelk >/dev/null
  rm -f "$work/installed"
}

leaves_nothing() {
  local path
  remove_deb
  dpkg-deb -c "$deb" | awk '{ print $6 }' | sed 's/^\.//' | while read -r path; do
    [ "${path%/}" != "$path" ] || [ ! -e "$path" ]
  done
  [ ! -e /usr/share/doc/pelk ]
}

counts_the_example_mail() {
  [ "$(pelk --version)" = "Pelk $version" ]
  pelk --data "$work/data" scan examples/mail
  [ "$(pelk --data "$work/data" contacts | wc -l)" -eq 61 ]
}

pelk() {
  "$target/usr/bin/pelk" "$@"
}

# completes EXPECTED WORD...: what the shell offers for the last word.
completes() {
  local expected=$1
  shift
  bash -c 'cd examples; . "$1"; COMP_WORDS=("${@:2}"); COMP_CWORD=$(($# - 2)); _pelk; echo "${COMPREPLY[*]}"' \
    bash "$target/usr/share/bash-completion/completions/pelk" "$@" >"$work/completed"
  diff <(echo "$expected") "$work/completed"
}

completes_in_the_shell() {
  completes "scan" pelk sc
  completes "delete delete-domain delete-database" pelk --json delete
  completes "--deleted" pelk scan --del
  completes "--name" pelk --data scan merge --na
  completes "" pelk contacts mai
  completes "mail" pelk --data mai
  completes "mail/Letters" pelk scan mail/Let
  completes "README.md" pelk --json load READ
}

manual_is_well_formed() {
  local warnings
  warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$manual" 2>&1 >"$work/manual")
  [ -z "$warnings" ] || { echo "$warnings"; return 1; }
  grep -q "Pelk $version" "$work/manual"
}

# What the program's own help names stands in the manual and in the completion as well.
manual_and_completion_are_complete() {
  local word
  pelk --help >"$work/help"
  { sed -nE 's/^  pelk ([a-z][a-z-]*).*/\1/p' "$work/help"; grep -oE -- '--[a-z][a-z-]*' "$work/help"; } |
    sort -u >"$work/words"
  [ "$(wc -l <"$work/words")" -gt 10 ]
  zcat "$manual" | sed 's/\\-/-/g' >"$work/plain"
  while read -r word; do
    grep -qE "^\.(B|BI|BR)( .*)?[ \"]$word([ \"\\\\]|\$)" "$work/plain" ||
      { echo "The manual does not tell of $word."; return 1; }
    grep -qE "[ \"]$word([ \"]|\$)" "$target/usr/share/bash-completion/completions/pelk" ||
      { echo "The completion does not know $word."; return 1; }
  done <"$work/words"
}

desktop_takes_it() {
  desktop-file-validate "$target/usr/share/applications/pelk.desktop"
  appstreamcli validate --no-net "$target/usr/share/metainfo/pelk.metainfo.xml"
  grep -qi '<html' "$target/usr/share/doc/pelk/help/index.html"
}

# The project has no mail address that the package could name.
passes_lintian() {
  lintian --allow-root --fail-on error,warning --suppress-tags \
    bogus-mail-host,bogus-mail-host-in-debian-changelog,initial-upload-closes-no-bugs "$deb"
}

check_deb() {
  if may_install; then
    touch "$work/installed"
    check "deb: installs on this machine" installs
  else
    target=$work/root
    check "deb: unpacks into a folder, as it may not be installed here" unpacks
  fi
  manual=$target/usr/share/man/man1/pelk.1.gz
  check "deb: counts the example mail" counts_the_example_mail
  check "deb: completes in the shell" completes_in_the_shell
  check "deb: the manual is well-formed" manual_is_well_formed
  check "deb: manual and completion have all that --help has" manual_and_completion_are_complete
  check "deb: the desktop takes it" desktop_takes_it
  ! command -v lintian >/dev/null || check "deb: lintian has no complaint" passes_lintian
  [ -n "$target" ] || check "deb: removing it leaves nothing" leaves_nothing
}
