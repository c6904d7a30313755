; SPDX-License-Identifier: MIT
; The installer for Windows. Silent with /S; the folder is chosen with /D=FOLDER as the last argument.
; Exit code 2 with nothing changed: the folder holds other files, or Turf Desk is running. The uninstaller goes on in a
; copy of itself and ends at once; who wants its exit code adds _?=FOLDER as the last argument, and afterwards deletes
; Uninstall.exe.
; Defined on the command line: VERSION, STAGE (the folder that holds what is installed), OUTPUT.

Unicode true
; The programs are 64-bit, and a Wine prefix beside them may have nothing else.
Target amd64-unicode
SetCompressor /SOLID lzma

!include MUI2.nsh
!include LogicLib.nsh
!include file-types.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\TurfDesk"

Name "Turf Desk"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Turf Desk"
; An update goes where the program is, unless a folder was asked for.
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
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
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolderPage
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; The folder of the Turf Desk that is there already, or empty, and whether it is the folder to install in.
Var Installed
Var Update
; Why nothing can be done, or empty.
Var Obstacle

!macro StopAtObstacle
  ${If} $Obstacle != ""
    MessageBox MB_OK|MB_ICONSTOP $Obstacle /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
!macroend

; Windows lets nobody write to a program that is running. Append changes nothing, but would make a file that is missing.
!macro FindRunning FOLDER PROGRAM
  ${If} ${FileExists} "${FOLDER}\${PROGRAM}"
    ClearErrors
    FileOpen $0 "${FOLDER}\${PROGRAM}" a
    ${If} ${Errors}
      StrCpy $Obstacle "Turf Desk is running. Close it and start again."
    ${Else}
      FileClose $0
    ${EndIf}
  ${EndIf}
!macroend

!macro FindRunningPrograms FOLDER
  !insertmacro FindRunning "${FOLDER}" "TurfDesk.exe"
  !insertmacro FindRunning "${FOLDER}" "turfctl.exe"
!macroend

; Sets RESULT to 1 where Turf Desk is installed in FOLDER. A folder can be spelt in several ways; its short name is one.
!macro IsInstalledIn FOLDER RESULT
  StrCpy ${RESULT} 0
  ReadRegStr $Installed HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $Installed != ""
  ${AndIf} ${FileExists} "$Installed\Uninstall.exe"
    GetFullPathName /SHORT $0 $Installed
    GetFullPathName /SHORT $1 "${FOLDER}"
    ${If} $0 == $1
      StrCpy ${RESULT} 1
    ${EndIf}
  ${EndIf}
!macroend

; Other people's files may have the names of ours: a folder that is not ours has to be empty.
Function FindForeignFiles
  FindFirst $0 $1 "$INSTDIR\*.*"
  ${DoWhile} $1 != ""
    ${If} $1 != "."
    ${AndIf} $1 != ".."
      StrCpy $Obstacle "The folder $INSTDIR holds other files. Choose an empty folder, or a new one."
    ${EndIf}
    FindNext $0 $1
  ${Loop}
  FindClose $0
FunctionEnd

Function FindObstacle
  StrCpy $Obstacle ""
  !insertmacro IsInstalledIn "$INSTDIR" $Update
  ${If} $Update = 0
    Call FindForeignFiles
  ${EndIf}
  ${If} $Installed != ""
    !insertmacro FindRunningPrograms "$Installed"
  ${EndIf}
FunctionEnd

Function LeaveFolderPage
  Call FindObstacle
  ${If} $Obstacle != ""
    ; Stays on the page, where another folder can be chosen.
    MessageBox MB_OK|MB_ICONSTOP $Obstacle
    Abort
  ${EndIf}
FunctionEnd

; There is one entry to uninstall by and one owner of the file types: a Turf Desk elsewhere goes first.
Function RemoveOther
  ${If} ${FileExists} "$Installed\Uninstall.exe"
    ClearErrors
    ExecWait '"$Installed\Uninstall.exe" /S _?=$Installed' $0
    ${If} ${Errors}
    ${OrIf} $0 <> 0
      StrCpy $Obstacle "The Turf Desk in $Installed could not be removed. Uninstall it and start again."
      !insertmacro StopAtObstacle
    ${EndIf}
    Delete "$Installed\Uninstall.exe"
    RMDir "$Installed"
  ${Else}
    ; Its folder was deleted by hand.
    !insertmacro GiveTypesBack "$Installed"
  ${EndIf}
FunctionEnd

Section "Turf Desk"
  SetRegView 64
  SetShellVarContext all
  Call FindObstacle
  !insertmacro StopAtObstacle
  ${If} $Update = 0
  ${AndIf} $Installed != ""
    Call RemoveOther
  ${EndIf}

  ; First what tells that the folder is ours: after a failure below, it can be installed again or uninstalled.
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Turf Desk"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\TurfDesk.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Turf Desk contributors"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
  SetOverwrite try
  ClearErrors
  File "${STAGE}/TurfDesk.exe"
  File "${STAGE}/turfctl.exe"
  File "${STAGE}/working.avi"
  File "${STAGE}/README.txt"
  File /r "${STAGE}/licences"
  ${If} ${Errors}
    StrCpy $Obstacle "Some files could not be written. Close Turf Desk and try again."
    !insertmacro StopAtObstacle
  ${EndIf}

  CreateShortcut "$SMPROGRAMS\Turf Desk.lnk" "$INSTDIR\TurfDesk.exe"
  !insertmacro TakeTypes
SectionEnd

; Runs COMMAND on what was installed from PATH of the stage.
!macro Undo COMMAND PATH
  !searchreplace NATIVE_PATH "${PATH}" "/" "\"
  ${COMMAND} "$INSTDIR\${NATIVE_PATH}"
  !undef NATIVE_PATH
!macroend

; Courses, libraries, packages and the game's settings are the user's and stay as they are. So does every file here that
; was not installed.
Section "Uninstall"
  SetRegView 64
  SetShellVarContext all
  StrCpy $Obstacle ""
  !insertmacro IsInstalledIn "$INSTDIR" $Update
  ${If} $Update = 0
    StrCpy $Obstacle "Turf Desk is not installed in $INSTDIR. Nothing was removed."
  ${EndIf}
  !insertmacro FindRunningPrograms "$INSTDIR"
  !insertmacro StopAtObstacle

  ClearErrors
  Delete "$INSTDIR\TurfDesk.exe"
  Delete "$INSTDIR\turfctl.exe"
  ${If} ${Errors}
    StrCpy $Obstacle "The programs could not be deleted. Close Turf Desk and start again."
    !insertmacro StopAtObstacle
  ${EndIf}
  ; The paths as they were entered, however this folder was spelt now.
  !insertmacro GiveTypesBack "$Installed"
  Delete "$SMPROGRAMS\Turf Desk.lnk"
  Delete "$INSTDIR\working.avi"
  Delete "$INSTDIR\README.txt"
  ; Deletes each licence by its name, and the folders that are empty then.
  !tempfile LIST
  !system `cd "${STAGE}" && find licences -type f | sed 's,.*,!insertmacro Undo Delete "&",' >"${LIST}"` = 0
  !system `cd "${STAGE}" && find licences -depth -type d | sed 's,.*,!insertmacro Undo RMDir "&",' >>"${LIST}"` = 0
  !include "${LIST}"
  !delfile "${LIST}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
