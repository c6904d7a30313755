; SPDX-License-Identifier: MIT
; Takes the file types for Turf Desk, and gives them back as they were. Each value that is taken is kept beside itself,
; under another name and with its kind: a command may hold %ProgramFiles%, which only one kind of value expands.

!define BEFORE "BeforeTurfDesk"

!macro CopyValue KEY FROM TO
  ReadRegStr $0 HKLM "${KEY}" "${FROM}"
  ; -2147483646 is HKEY_LOCAL_MACHINE; 0x1000ffff asks for any kind, as it stands there.
  System::Call 'advapi32::RegGetValueW(p -2147483646, w "${KEY}", w "${FROM}", i 0x1000ffff, *i .r1, p 0, p 0)'
  ${If} $1 == 2
    WriteRegExpandStr HKLM "${KEY}" "${TO}" $0
  ${Else}
    WriteRegStr HKLM "${KEY}" "${TO}" $0
  ${EndIf}
!macroend

!macro TakeValue KEY OURS
  ClearErrors
  ReadRegStr $0 HKLM "${KEY}" ""
  ${If} ${Errors}
    DeleteRegValue HKLM "${KEY}" "${BEFORE}"
  ${ElseIf} $0 != `${OURS}`
    !insertmacro CopyValue "${KEY}" "" "${BEFORE}"
  ${EndIf}
  WriteRegStr HKLM "${KEY}" "" `${OURS}`
!macroend

; What somebody else has entered since it was taken stays.
!macro GiveValueBack KEY OURS
  ReadRegStr $0 HKLM "${KEY}" ""
  ${If} $0 == `${OURS}`
    ClearErrors
    ReadRegStr $0 HKLM "${KEY}" "${BEFORE}"
    ${If} ${Errors}
      DeleteRegValue HKLM "${KEY}" ""
    ${Else}
      !insertmacro CopyValue "${KEY}" "${BEFORE}" ""
    ${EndIf}
  ${EndIf}
  DeleteRegValue HKLM "${KEY}" "${BEFORE}"
  !insertmacro DeleteEmptyKey "${KEY}"
!macroend

!macro DeleteEmptyKey KEY
  DeleteRegKey /ifnosubkeys /ifnovalues HKLM "${KEY}"
!macroend

; TYPE is the text that the program itself, and the game, give to the extension. So on a first installation it may be
; there already, and is to stay when Turf Desk goes; on an update ($Update is 1) it is there because of us.
!macro TakeType EXTENSION TYPE
  ReadRegStr $0 HKLM "Software\Classes\${EXTENSION}" ""
  ${If} $Update = 0
  ${AndIf} $0 == "${TYPE}"
    !insertmacro CopyValue "Software\Classes\${EXTENSION}" "" "${BEFORE}"
  ${EndIf}
  !insertmacro TakeValue "Software\Classes\${EXTENSION}" "${TYPE}"
  !insertmacro TakeValue "Software\Classes\${TYPE}\DefaultIcon" "$INSTDIR\TurfDesk.exe,0"
  !insertmacro TakeValue "Software\Classes\${TYPE}\shell\open\command" '"$INSTDIR\TurfDesk.exe" "%1"'
!macroend

!macro GiveTypeBack EXTENSION TYPE FOLDER
  !insertmacro GiveValueBack "Software\Classes\${TYPE}\shell\open\command" '"${FOLDER}\TurfDesk.exe" "%1"'
  !insertmacro DeleteEmptyKey "Software\Classes\${TYPE}\shell\open"
  !insertmacro DeleteEmptyKey "Software\Classes\${TYPE}\shell"
  !insertmacro GiveValueBack "Software\Classes\${TYPE}\DefaultIcon" "${FOLDER}\TurfDesk.exe,0"
  !insertmacro DeleteEmptyKey "Software\Classes\${TYPE}"
  !insertmacro GiveValueBack "Software\Classes\${EXTENSION}" "${TYPE}"
!macroend

!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

!macro TakeTypes
  !insertmacro TakeType ".hlb" "KESTRAVON Library"
  !insertmacro TakeType ".hlc" "KESTRAVON Course"
  !insertmacro TakeType ".hlz" "KESTRAVON Compressed Course"
  !insertmacro TellExplorer
!macroend

!macro GiveTypesBack FOLDER
  !insertmacro GiveTypeBack ".hlb" "KESTRAVON Library" "${FOLDER}"
  !insertmacro GiveTypeBack ".hlc" "KESTRAVON Course" "${FOLDER}"
  !insertmacro GiveTypeBack ".hlz" "KESTRAVON Compressed Course" "${FOLDER}"
  !insertmacro TellExplorer
!macroend
