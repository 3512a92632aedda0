# What makes a fault in memory harder to exploit, read from the programs that the packages bring. What
# leaves no trace in them is read from how their sources were compiled.

# has PROGRAM_OUTPUT PATTERN...: every pattern stands in it.
has() {
  local text=$1 pattern
  shift
  for pattern in "$@"; do
    grep -qE -e "$pattern" <<<"$text" || { echo "nothing matches $pattern"; return 1; }
  done
}

program_is_hardened() {
  local program=build/linux/bin/pelk
  has "$(readelf -hlW "$program")" 'Type: +DYN' '^ +GNU_RELRO ' '^ +GNU_STACK .* RW +0x'
  has "$(readelf -dW "$program")" 'FLAGS\) +BIND_NOW' 'Flags: NOW PIE'
  has "$(readelf -W --dyn-syms "$program")" ' __stack_chk_fail@'
  # Each function that may be called through a pointer starts with one; without the flag only a few
  # of the C library's do.
  [ "$(uname -m)" != x86_64 ] || [ "$(objdump -d "$program" | grep -c endbr64)" -gt 1000 ]
}

# checks_at LEVEL COMMAND: what the compiler makes of _FORTIFY_SOURCE under the flags of that command.
checks_at() {
  has "$(${2/ -o * -c / -E -dM } | grep __USE_FORTIFY_LEVEL)" "LEVEL $1$"
}

# Each source of the program that stands alone has its flags from the same place as all others.
sources_are_hardened() {
  local commands
  commands=$(sed -nE 's/^ *"command": "(.*)",$/\1/p' build/linux/compile_commands.json |
    grep -vE -e '-c [^ ]*/(tests|bench)/')
  [ "$(wc -l <<<"$commands")" -gt 100 ]
  [ "$(grep -cvE -e ' -fstack-clash-protection ' <<<"$commands")" -eq 0 ]
  [ "$(grep -cvE -e ' -D_FORTIFY_SOURCE=3 .* -O[23] ' <<<"$commands")" -eq 0 ]
  checks_at 3 "$(grep -m 1 '/posix_files.cpp$' <<<"$commands")"
}

# libraries_of LIBRARY: the libraries that it loads, in small letters.
libraries_of() {
  objdump -p "$1" | sed -n 's/.*DLL Name: //p' | tr '[:upper:]' '[:lower:]'
}

# addin_is_hardened FOLDER FLAG...: the DLL has these flags, and loads nothing but what Windows has.
addin_is_hardened() {
  local library=$1/bin/pelk.dll name
  shift
  has "$(objdump -p "$library")" "$@"
  has "$(strings "$library")" 'stack smashing detected'
  for name in $(libraries_of "$library"); do
    case $name in
      advapi32.dll | bcrypt.dll | comctl32.dll | comdlg32.dll | crypt32.dll | gdi32.dll | \
        gdiplus.dll | kernel32.dll | msvcrt.dll | ole32.dll | oleaut32.dll | shell32.dll | \
        user32.dll) ;;
      *)
        echo "$name is not part of every Windows"
        return 1
        ;;
    esac
  done
}

check_hardening() {
  check "hardening: the program for Linux" program_is_hardened
  check "hardening: how its sources are compiled" sources_are_hardened
  check "hardening: the add-in, 64 bit" addin_is_hardened build/windows \
    HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT
  check "hardening: the add-in, 32 bit" addin_is_hardened build/windows32 DYNAMIC_BASE NX_COMPAT
}
