; The installer of the add-in, for one user and without administrator rights.
;
; The caller defines VERSION, LIBRARY64, LIBRARY32, HELP, LICENSE (files), ART (the folder of the
; images), OUTPUT.
;
; Switches: /S is silent, /D=FOLDER (last, unquoted) installs there, /BITNESS=32 or 64 is the
; bitness of Outlook. Exit codes: 1 the user cancelled, 2 a file is in use or cannot be written,
; 3 installed but not registered, 4 a wrong switch.

Unicode true
; 64-bit, so that Windows does not redirect folders and registry. It runs on 64-bit Windows with
; either Outlook.
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
AllowSkipFiles off

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include bitness.nsh
!include registration.nsh

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Pelk"
!define IN_USE 2
!define NOT_REGISTERED 3
!define WRONG_SWITCH 4

Name "Pelk"
BrandingText "Pelk ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Pelk"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Pelk"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs Pelk, an add-in for Outlook"
VIAddVersionKey CompanyName "Pelk"
VIAddVersionKey LegalCopyright "The Pelk authors, MIT licence"

!define MUI_ICON "${ART}/pelk.ico"
!define MUI_UNICON "${ART}/pelk.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${ART}/wizard.bmp"
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight
!define MUI_WELCOMEPAGE_TITLE "Pelk ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "Pelk shows who is connected to whom by e-mail, in your Outlook.$\r$\n$\r$\nIt is installed for your user account only and needs no administrator rights. Everything it counts stays on this computer.$\r$\n$\r$\nClose Outlook before you continue."
!define MUI_FINISHPAGE_TITLE "Pelk is installed"
!define MUI_FINISHPAGE_TEXT "Start Outlook. Pelk is on the Home tab of the ribbon; in Outlook 2007 and earlier, it is a menu on the tool bar."
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; A file that a program has open.
Var held

!macro tryExclusively FILE
  ${If} ${FileExists} "${FILE}"
    ClearErrors
    FileOpen $0 "${FILE}" a
    ${If} ${Errors}
      StrCpy $held "${FILE}"
    ${Else}
      FileClose $0
    ${EndIf}
  ${EndIf}
!macroend

; Exits with a code if a program has one of the files in FOLDER open: replacing only some of the
; files would mix two versions.
!macro refuseInUse FOLDER
  ${Do}
    StrCpy $held ""
    !insertmacro tryExclusively "${FOLDER}\pelk.dll"
    !insertmacro tryExclusively "${FOLDER}\pelk32.dll"
    !insertmacro tryExclusively "${FOLDER}\pelk.chm"
    ${If} $held == ""
      ${Break}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$held is in use, or you may not write to it. Close Outlook, then try again." /SD IDCANCEL IDCANCEL`
      SetErrorLevel ${IN_USE}
      Quit
    ${EndIf}
  ${Loop}
!macroend

Function .onInit
  Call chooseBitness
  ${If} $bitness == ""
    MessageBox MB_OK|MB_ICONSTOP "The switch /BITNESS must be 32 or 64." /SD IDOK
    SetErrorLevel ${WRONG_SWITCH}
    Quit
  ${EndIf}
FunctionEnd

; The uninstaller of an earlier version knows its files and removes them.
Function removeEarlier
  ReadRegStr $1 HKCU "${ENTRY}" "InstallLocation"
  ${If} $1 == ""
  ${OrIfNot} ${FileExists} "$1\uninstall.exe"
    Return
  ${EndIf}
  !insertmacro refuseInUse "$1"
  DetailPrint "Removing the earlier version"
  ExecWait '"$1\uninstall.exe" /S _?=$1' $0
  ${If} $0 != 0
    SetErrorLevel ${IN_USE}
    Abort "The earlier version in $1 could not be removed (exit code $0)."
  ${EndIf}
  ; Run in place, because a copy would return at once. It cannot delete itself.
  Delete "$1\uninstall.exe"
  RMDir "$1"
FunctionEnd

Section "Pelk" main
  Call removeEarlier
  !insertmacro refuseInUse "$INSTDIR"
  SetOutPath "$INSTDIR"
  File "/oname=pelk.dll" "${LIBRARY64}"
  File "/oname=pelk32.dll" "${LIBRARY32}"
  File "/oname=pelk.chm" "${HELP}"
  File "/oname=LICENSE.txt" "${LICENSE}"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call writeEntry
  Call register
SectionEnd

Function writeEntry
  SectionGetSize ${main} $0
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Pelk"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "Pelk"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" $0
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
FunctionEnd

Function register
  DetailPrint "Registering with the $bitness-bit Outlook"
  ${If} $bitness = 32
    !insertmacro registrar $0 32 "" "$INSTDIR\pelk32.dll"
  ${Else}
    !insertmacro registrar $0 64 "" "$INSTDIR\pelk.dll"
  ${EndIf}
  ${If} $0 != 0
    SetErrorLevel ${NOT_REGISTERED}
    MessageBox MB_OK|MB_ICONSTOP "Pelk is in $INSTDIR, but the $bitness-bit regsvr32 could not register it with Outlook ($0).$\r$\n$\r$\nIf your Outlook is not $bitness-bit, install again with the switch /BITNESS=32 or /BITNESS=64." /SD IDOK
    Abort "Pelk could not be registered ($0)."
  ${EndIf}
FunctionEnd

Function un.onInit
  !insertmacro refuseInUse "$INSTDIR"
FunctionEnd

; Removes only what the installer created: the folder stays if it contains other files, and so does
; the database in the user's roaming folder.
Section "Uninstall"
  !insertmacro unregister 64 "$INSTDIR\pelk.dll"
  !insertmacro unregister 32 "$INSTDIR\pelk32.dll"
  Delete "$INSTDIR\pelk.dll"
  Delete "$INSTDIR\pelk32.dll"
  Delete "$INSTDIR\pelk.chm"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${ENTRY}"
SectionEnd
