; SPDX-License-Identifier: MIT
; Takes the file types for Turf Desk, and gives them back as they were. What was there before a value was taken stands
; beside it: under one name its bytes, whatever their kind, or under another that there was nothing. A value without
; either was not taken, whatever it says.

!define BEFORE "BeforeTurfDesk"
!define NOTHING_BEFORE "NothingBeforeTurfDesk"

; Sets $0 to 0 where there is such a value, $1 to its kind and $2 to its size in bytes. -2147483646 is
; HKEY_LOCAL_MACHINE; 0x1000ffff asks for any kind, as it stands there.
!macro FindValue KEY NAME
  System::Call 'advapi32::RegGetValueW(p -2147483646, w "${KEY}", w "${NAME}", i 0x1000ffff, *i .r1, p 0, *i .r2) i .r0'
!macroend

; Copies the value that was just found, whatever its kind and length. $0 is 0 where that worked.
!macro CopyFoundValue KEY NAME TO
  System::Alloc $2
  Pop $3
  System::Call 'advapi32::RegGetValueW(p -2147483646, w "${KEY}", w "${NAME}", i 0x1000ffff, p 0, p r3, *i r2r2) i .r0'
  ${If} $0 = 0
    System::Call 'advapi32::RegSetKeyValueW(p -2147483646, w "${KEY}", w "${TO}", i r1, p r3, i r2) i .r0'
  ${EndIf}
  System::Free $3
!macroend

; Sets $5 to 1 where it is known what was there before the value was taken, else to 0.
!macro IsKept KEY
  StrCpy $5 0
  !insertmacro FindValue "${KEY}" "${BEFORE}"
  ${If} $0 = 0
    StrCpy $5 1
  ${EndIf}
  !insertmacro FindValue "${KEY}" "${NOTHING_BEFORE}"
  ${If} $0 = 0
    StrCpy $5 1
  ${EndIf}
!macroend

; Sets $0 to 0 where that worked.
!macro KeepValue KEY
  DeleteRegValue HKLM "${KEY}" "${BEFORE}"
  DeleteRegValue HKLM "${KEY}" "${NOTHING_BEFORE}"
  !insertmacro FindValue "${KEY}" ""
  ${If} $0 = 0
    !insertmacro CopyFoundValue "${KEY}" "" "${BEFORE}"
  ${ElseIf} $0 = 2
    WriteRegStr HKLM "${KEY}" "${NOTHING_BEFORE}" ""
    StrCpy $0 0
  ${EndIf}
!macroend

; A value with something kept beside it and with our END is one that we took, maybe for another folder. Any other is
; somebody's, whatever was there earlier. What cannot be kept is not taken.
!macro TakeValue KEY OURS END
  ReadRegStr $4 HKLM "${KEY}" ""
  StrLen $6 `${END}`
  StrCpy $6 $4 "" -$6
  !insertmacro IsKept "${KEY}"
  StrCpy $0 0
  ${If} $5 = 0
  ${OrIf} $6 != `${END}`
    !insertmacro KeepValue "${KEY}"
  ${EndIf}
  ${If} $0 = 0
    WriteRegStr HKLM "${KEY}" "" `${OURS}`
  ${EndIf}
!macroend

; What somebody else has entered since it was taken stays.
!macro GiveValueBack KEY OURS
  ReadRegStr $4 HKLM "${KEY}" ""
  StrCpy $0 0
  ${If} $4 == `${OURS}`
    !insertmacro FindValue "${KEY}" "${BEFORE}"
    ${If} $0 = 0
      !insertmacro CopyFoundValue "${KEY}" "${BEFORE}" ""
    ${Else}
      !insertmacro FindValue "${KEY}" "${NOTHING_BEFORE}"
      ${If} $0 = 0
        DeleteRegValue HKLM "${KEY}" ""
      ${EndIf}
    ${EndIf}
  ${EndIf}
  ; What could not be given back can still be by hand.
  ${If} $0 = 0
    DeleteRegValue HKLM "${KEY}" "${BEFORE}"
    DeleteRegValue HKLM "${KEY}" "${NOTHING_BEFORE}"
  ${EndIf}
  !insertmacro DeleteEmptyKey "${KEY}"
!macroend

!macro DeleteEmptyKey KEY
  DeleteRegKey /ifnosubkeys /ifnovalues HKLM "${KEY}"
!macroend

; TYPE is the text that the program itself, and the game, give to the extension: it may be there before.
!macro TakeType EXTENSION TYPE
  !insertmacro TakeValue "Software\Classes\${EXTENSION}" "${TYPE}" "${TYPE}"
  !insertmacro TakeValue "Software\Classes\${TYPE}\DefaultIcon" "$INSTDIR\TurfDesk.exe,0" "\TurfDesk.exe,0"
  !insertmacro TakeValue "Software\Classes\${TYPE}\shell\open\command" '"$INSTDIR\TurfDesk.exe" "%1"' '\TurfDesk.exe" "%1"'
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
