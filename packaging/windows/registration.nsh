; Registers and unregisters a library for the current user.

!define CLASSES "Software\Classes"
!define CONNECT_CLASS "${CLASSES}\CLSID\{41765D26-3A07-48AF-956A-1D6146C5F18B}"
!define CIPHER_CLASS "${CLASSES}\CLSID\{A440BD76-CFE1-4D46-AB1F-15F238437A3D}"

; Runs the regsvr32 of this bitness with SWITCH. RESULT: its exit code, or "error" if it cannot run.
!macro registrar RESULT BITS SWITCH LIBRARY
  ClearErrors
  !if ${BITS} = 32
    ExecWait '"$WINDIR\SysWOW64\regsvr32.exe" /s ${SWITCH} "${LIBRARY}"' ${RESULT}
  !else
    ExecWait '"$SYSDIR\regsvr32.exe" /s ${SWITCH} "${LIBRARY}"' ${RESULT}
  !endif
  ${If} ${Errors}
    StrCpy ${RESULT} "error"
  ${EndIf}
!macroend

; Unregisters LIBRARY if it is registered in the registry of this bitness. The library does so
; itself; if it is missing or does not run, the installer deletes its keys.
!macro unregister BITS LIBRARY
  SetRegView ${BITS}
  ReadRegStr $0 HKCU "${CONNECT_CLASS}\InprocServer32" ""
  ${If} $0 == "${LIBRARY}"
    !insertmacro registrar $0 ${BITS} "/u" "${LIBRARY}"
    ${If} $0 != 0
      DeleteRegKey HKCU "${CONNECT_CLASS}"
      DeleteRegKey HKCU "${CIPHER_CLASS}"
      DeleteRegKey HKCU "${CLASSES}\Pelk.Connect"
      DeleteRegKey HKCU "${CLASSES}\Pelk.DatabaseCipher"
      DeleteRegKey HKCU "Software\Microsoft\Office\Outlook\Addins\Pelk.Connect"
    ${EndIf}
  ${EndIf}
  SetRegView 64
!macroend
