; SPDX-License-Identifier: MIT
; The installer for Windows. Silent with /S; the folder is chosen with /D=FOLDER as the last argument.
; Defined on the command line: VERSION, STAGE (the folder that holds what is installed), OUTPUT.

Unicode true
; The programs are 64-bit, and a Wine prefix beside them may have nothing else.
Target amd64-unicode
SetCompressor /SOLID lzma

!include MUI2.nsh
!include LogicLib.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\TurfDesk"
; What opened a file before this program was installed, kept in the key of the command.
!define PREVIOUS_COMMAND "BeforeTurfDesk"

Name "Turf Desk"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Turf Desk"
RequestExecutionLevel admin
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Turf Desk"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Turf Desk Setup"
VIAddVersionKey CompanyName "Turf Desk contributors"
VIAddVersionKey LegalCopyright "Copyright 2026 Turf Desk contributors. MIT licence."

!define MUI_ICON "${STAGE}/turfdesk.ico"
!define MUI_UNICON "${STAGE}/turfdesk.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\TurfDesk.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Opening a file of this kind from the Explorer reaches Turf Desk. TYPE is the text that the program itself gives to the
; extension at every start.
!macro OpenWithTurfDesk EXTENSION TYPE
  WriteRegStr HKLM "Software\Classes\${EXTENSION}" "" "${TYPE}"
  WriteRegStr HKLM "Software\Classes\${TYPE}\DefaultIcon" "" "$INSTDIR\TurfDesk.exe,0"
  ReadRegStr $0 HKLM "Software\Classes\${TYPE}\shell\open\command" ""
  StrCpy $1 '"$INSTDIR\TurfDesk.exe" "%1"'
  ${If} $0 != ""
  ${AndIf} $0 != $1
    WriteRegStr HKLM "Software\Classes\${TYPE}\shell\open\command" "${PREVIOUS_COMMAND}" $0
  ${EndIf}
  WriteRegStr HKLM "Software\Classes\${TYPE}\shell\open\command" "" $1
!macroend

; Gives the file type back to whoever had it. What another program has entered since then stays.
!macro StopOpening TYPE
  ReadRegStr $0 HKLM "Software\Classes\${TYPE}\shell\open\command" ""
  ${If} $0 == '"$INSTDIR\TurfDesk.exe" "%1"'
    ReadRegStr $1 HKLM "Software\Classes\${TYPE}\shell\open\command" "${PREVIOUS_COMMAND}"
    ${If} $1 != ""
      WriteRegStr HKLM "Software\Classes\${TYPE}\shell\open\command" "" $1
      DeleteRegValue HKLM "Software\Classes\${TYPE}\shell\open\command" "${PREVIOUS_COMMAND}"
    ${Else}
      DeleteRegKey HKLM "Software\Classes\${TYPE}\shell\open\command"
      DeleteRegKey /ifempty HKLM "Software\Classes\${TYPE}\shell\open"
      DeleteRegKey /ifempty HKLM "Software\Classes\${TYPE}\shell"
    ${EndIf}
  ${EndIf}
  ReadRegStr $0 HKLM "Software\Classes\${TYPE}\DefaultIcon" ""
  ${If} $0 == "$INSTDIR\TurfDesk.exe,0"
    DeleteRegKey HKLM "Software\Classes\${TYPE}\DefaultIcon"
  ${EndIf}
  DeleteRegKey /ifempty HKLM "Software\Classes\${TYPE}"
!macroend

!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
  SetRegView 64
  ; An update goes where the program is, unless a folder was asked for.
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} $INSTDIR == "$PROGRAMFILES64\Turf Desk"
    StrCpy $INSTDIR $0
  ${EndIf}
FunctionEnd

Section "Turf Desk"
  SetRegView 64
  SetShellVarContext all
  SetOutPath "$INSTDIR"
  SetOverwrite try
  ClearErrors
  File "${STAGE}/TurfDesk.exe"
  File "${STAGE}/turfctl.exe"
  File "${STAGE}/working.avi"
  File "${STAGE}/README.txt"
  File /r "${STAGE}/licences"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "Some files could not be written. Close Turf Desk and try again." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  CreateShortcut "$SMPROGRAMS\Turf Desk.lnk" "$INSTDIR\TurfDesk.exe"

  !insertmacro OpenWithTurfDesk ".hlb" "KESTRAVON Library"
  !insertmacro OpenWithTurfDesk ".hlc" "KESTRAVON Course"
  !insertmacro OpenWithTurfDesk ".hlz" "KESTRAVON Compressed Course"
  !insertmacro TellExplorer

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Turf Desk"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\TurfDesk.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Turf Desk contributors"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; Courses, libraries, packages and the game's settings are the user's and stay as they are.
Section "Uninstall"
  SetRegView 64
  SetShellVarContext all
  !insertmacro StopOpening "KESTRAVON Library"
  !insertmacro StopOpening "KESTRAVON Course"
  !insertmacro StopOpening "KESTRAVON Compressed Course"
  !insertmacro TellExplorer
  Delete "$SMPROGRAMS\Turf Desk.lnk"
  Delete "$INSTDIR\TurfDesk.exe"
  Delete "$INSTDIR\turfctl.exe"
  Delete "$INSTDIR\working.avi"
  Delete "$INSTDIR\README.txt"
  RMDir /r "$INSTDIR\licences"
  Delete "$INSTDIR\Uninstall.exe"
  ; Only an empty folder: what somebody else has put there stays.
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
