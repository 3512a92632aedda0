# The installer for Windows. Its folder of one's own has a space in its name.

folder="$root/build/package-test/prefix/drive_c/Some place/Pelk"
here=('/D=C:\Some' 'place\Pelk')
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Pelk'
office='HKLM\Software\Microsoft\Office'

wine() {
  timeout 120 scripts/wine.sh "$@"
}

setup() {
  wine "$setup" /S "$@"
}

reg() {
  wine reg "$@" | tr -d '\r'
}

# client CASE: loads what is registered, as Outlook does.
client() {
  PELK_SETUP="Z:$setup" exits 0 wine build/windows/bin/installed_test.exe \
    "--gtest_filter=Installed.$1"
}

# is_whole FOLDER: it holds what it should, and nothing else.
is_whole() {
  cmp build/windows/bin/pelk.dll "$1/pelk.dll"
  cmp build/windows32/bin/pelk.dll "$1/pelk32.dll"
  cmp build/windows/bin/pelk.chm "$1/pelk.chm"
  cmp LICENSE "$1/LICENSE.txt"
  [ "$(ls "$1" | wc -l)" -eq 5 ]
}

installs_where_told() {
  exits 0 setup "${here[@]}"
  is_whole "$folder"
  client 'isFound*'
}

can_be_found_by_the_system() {
  local entry='C:\Some place\Pelk' size
  reg query "$uninstall_key" | sed -nE 's/^ +(\w+) +REG_\w+ +/\1=/p' | sort >"$work/entry"
  diff - <(grep -v EstimatedSize "$work/entry") <<END
DisplayIcon=$entry\uninstall.exe
DisplayName=Pelk
DisplayVersion=$version
InstallLocation=$entry
NoModify=0x1
NoRepair=0x1
Publisher=Pelk
QuietUninstallString="$entry\uninstall.exe" /S
UninstallString="$entry\uninstall.exe"
END
  # In KB, and each file rounded up.
  size=$(($(sed -n 's/EstimatedSize=//p' "$work/entry") - $(du -bk "$folder" | cut -f 1)))
  [ "${size#-}" -lt 300 ]
}

leaves_alone_what_is_loaded() {
  client 'isNot*'
  is_whole "$folder"
  client 'isFound*'
}

installs_over_an_earlier_one() {
  rm "$folder/LICENSE.txt"
  echo old >"$folder/pelk32.dll"
  exits 0 setup
  is_whole "$folder"
  exits 0 setup '/D=C:\Other'
  [ ! -e "$folder" ]
  is_whole "$WINEPREFIX/drive_c/Other"
  client 'isFound*'
  exits 0 setup "${here[@]}"
  [ ! -e "$WINEPREFIX/drive_c/Other" ]
}

# chooses BITNESS [SWITCH...]: the one for which the installer registers. Where Wine runs no 32-bit
# code, it must say so. Afterwards, Office is forgotten.
chooses() {
  local code=0
  setup "${@:2}" || code=$?
  case $1-$code in
    64-0 | 32-3) ;;
    32-0) reg query 'HKCU\Software\Classes\CLSID' /s /reg:32 | grep 'pelk32\.dll' ;;
    *)
      echo "not registered for $1 bits, exit code $code"
      return 1
      ;;
  esac
  reg delete "$office" /f || true
  reg delete "$office" /f /reg:32 || true
}

# office_has KEY VALUE DATA [SWITCH...]: enters what Office would.
office_has() {
  reg add "$office\\$1" /v "$2" /d "$3" /f "${@:4}"
}

# outlook_is PRESET: enters what has been built so as Outlook's program.
outlook_is() {
  reg add 'HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\OUTLOOK.EXE' /ve \
    /d "Z:${root//\//\\}\\build\\$1\\bin\\pelk.dll" /f
}

knows_the_bitness_of_outlook() {
  office_has '16.0\Outlook' Bitness x86
  chooses 32
  office_has '15.0\Outlook' Bitness x86 /reg:32
  chooses 32
  office_has '14.0\Outlook' Bitness x86
  office_has '16.0\Outlook' Bitness x64
  chooses 64
  office_has 'ClickToRun\Configuration' Platform x86
  chooses 32
  outlook_is windows32
  chooses 32
  outlook_is windows
  chooses 64
  office_has '16.0\Outlook' Bitness x86
  chooses 64 /BITNESS=64
  exits 4 setup /BITNESS=16
  client 'isFound*'
}

# is_gone FOLDER: after the uninstaller, which leaves a copy of itself to do the work.
is_gone() {
  for _ in $(seq 100); do
    [ -e "$1" ] || break
    sleep 0.2
  done
  [ ! -e "$1" ]
  wine reg export 'HKCU\Software' 'C:\left.reg' /y
  ! iconv -f UTF-16 "$WINEPREFIX/drive_c/left.reg" |
    grep -E '\\Pelk|"Pelk|41765D26-3A07|A440BD76-CFE1'
}

uninstalls_all_but_the_data() {
  local data
  data=$(find "$WINEPREFIX/drive_c/users" -path '*/AppData/Roaming' | head -n 1)/pelk
  mkdir -p "$data"
  echo mine >"$data/pelk.db"
  exits 0 wine 'C:\Some place\Pelk\uninstall.exe' /S
  is_gone "$folder"
  grep mine "$data/pelk.db"
}

uninstalls_what_is_damaged() {
  exits 0 setup "${here[@]}"
  rm "$folder/pelk.dll"
  exits 0 wine 'C:\Some place\Pelk\uninstall.exe' /S
  is_gone "$folder"
}

check_setup() {
  check "setup: installs silently where it is told, and Outlook's stand-in finds it" \
    installs_where_told
  check "setup: the uninstall entry says it all" can_be_found_by_the_system
  check "setup: what Outlook has loaded is left alone" leaves_alone_what_is_loaded
  check "setup: installs over an earlier one, and to another folder" installs_over_an_earlier_one
  check "setup: knows the bitness of Outlook" knows_the_bitness_of_outlook
  check "setup: uninstalling leaves the user's data and nothing else" uninstalls_all_but_the_data
  check "setup: a damaged installation can be uninstalled" uninstalls_what_is_damaged
}
