; Finds the bitness of Outlook, which loads only add-ins of the same bitness.

Var bitness

; Sets $bitness to 32 or 64; empty if the switch /BITNESS has another value.
Function chooseBitness
  SetRegView 64
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/BITNESS=" $bitness
  ${IfNot} ${Errors}
    ${If} $bitness != "32"
    ${AndIf} $bitness != "64"
      StrCpy $bitness ""
    ${EndIf}
    Return
  ${EndIf}
  StrCpy $bitness ""
  Call readOfficeEntries
  ${If} $bitness == ""
    Call readProgramHeader
  ${EndIf}
  ; Without Outlook, use the bitness of Windows.
  ${If} $bitness == ""
    StrCpy $bitness 64
  ${EndIf}
FunctionEnd

; Returns from the function if the value is known.
!macro readBitness KEY VALUE
  !insertmacro readBitnessInView 64 "${KEY}" "${VALUE}"
  !insertmacro readBitnessInView 32 "${KEY}" "${VALUE}"
!macroend

!macro readBitnessInView VIEW KEY VALUE
  SetRegView ${VIEW}
  ReadRegStr $0 HKLM "${KEY}" "${VALUE}"
  SetRegView 64
  ${If} $0 == "x86"
    StrCpy $bitness 32
    Return
  ${ElseIf} $0 == "x64"
    StrCpy $bitness 64
    Return
  ${EndIf}
!macroend

; Reads the registry entries of Office, newest version first. 32-bit Office on 64-bit Windows uses
; the 32-bit registry, or both if installed by Click-to-Run.
Function readOfficeEntries
  !insertmacro readBitness "Software\Microsoft\Office\16.0\Outlook" "Bitness"
  !insertmacro readBitness "Software\Microsoft\Office\ClickToRun\Configuration" "Platform"
  !insertmacro readBitness "Software\Microsoft\Office\15.0\Outlook" "Bitness"
  !insertmacro readBitness "Software\Microsoft\Office\15.0\ClickToRun\Configuration" "Platform"
  !insertmacro readBitness "Software\Microsoft\Office\14.0\Outlook" "Bitness"
FunctionEnd

; Reads the machine type of OUTLOOK.EXE, because Outlook 2007 and earlier have no registry entry.
Function readProgramHeader
  !define APP_PATH "Software\Microsoft\Windows\CurrentVersion\App Paths\OUTLOOK.EXE"
  ReadRegStr $0 HKLM "${APP_PATH}" ""
  ${If} $0 == ""
    SetRegView 32
    ReadRegStr $0 HKLM "${APP_PATH}" ""
    SetRegView 64
  ${EndIf}
  ${If} $0 == ""
    Return
  ${EndIf}
  ClearErrors
  FileOpen $1 $0 r
  ${If} ${Errors}
    Return
  ${EndIf}
  ; The word at offset 60 is the position of the PE header; the machine type follows its signature.
  FileSeek $1 60
  FileReadWord $1 $2
  IntOp $2 $2 + 4
  FileSeek $1 $2
  FileReadWord $1 $3
  FileClose $1
  ${If} $3 = 0x014C
    StrCpy $bitness 32
  ${ElseIf} $3 = 0x8664
    StrCpy $bitness 64
  ${EndIf}
FunctionEnd
