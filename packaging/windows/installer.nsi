; SPDX-License-Identifier: MIT
; The installer for Windows. Silent with /S; the folder is chosen with /D=FOLDER as the last argument. It ends with exit
; code 2 and its words: with nothing changed where it cannot begin or cannot write its files, else when it was stopped
; half-way; then it can be started again. The uninstaller goes on in a copy of itself and ends at once; who wants its
; exit code adds _?=FOLDER as the last argument, and afterwards deletes Uninstall.exe.
; Defined on the command line: VERSION, STAGE (the folder that holds what is installed), OUTPUT.

Unicode true
; The programs are 64-bit, and a Wine prefix beside them may have nothing else.
Target amd64-unicode
SetCompressor /SOLID lzma

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include file-types.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\TurfDesk"
; Below the folder to install in: what is to be installed, until all of it is on the disk.
!define NEW "TurfDesk.new"

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

; The folder that is entered as Turf Desk's, and the same where Turf Desk is really there; or empty.
Var Entered
Var Installed
; Is that the folder to install in, or to uninstall from?
Var IsHere
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

; A folder can be spelt in several ways; its short name is one.
!macro FindInstalled
  StrCpy $Installed ""
  StrCpy $IsHere 0
  ReadRegStr $Entered HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $Entered != ""
    ${If} ${FileExists} "$Entered\TurfDesk.exe"
    ${OrIf} ${FileExists} "$Entered\Uninstall.exe"
    ${OrIf} ${FileExists} "$Entered\${NEW}\*.*"
      StrCpy $Installed $Entered
      GetFullPathName /SHORT $0 $Installed
      GetFullPathName /SHORT $1 $INSTDIR
      ${If} $0 == $1
        StrCpy $IsHere 1
      ${EndIf}
    ${EndIf}
  ${EndIf}
!macroend

; Other people's files may have the names of ours: a folder that is not ours has to be empty.
Function FindForeignFiles
  FindFirst $0 $1 "$INSTDIR\*.*"
  ${DoWhile} $1 != ""
    ${If} $1 != "."
    ${AndIf} $1 != ".."
    ${AndIf} $1 != "${NEW}"
      StrCpy $Obstacle "The folder $INSTDIR holds other files. Choose an empty folder, or a new one."
    ${EndIf}
    FindNext $0 $1
  ${Loop}
  FindClose $0
FunctionEnd

Function FindObstacle
  StrCpy $Obstacle ""
  !insertmacro FindInstalled
  ${If} $IsHere = 0
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

; A folder that cannot be installed in gives way to the usual one, before anybody is asked. That is not what was wanted.
Function .onInit
  System::Call 'kernel32::GetCommandLineW() w .r0'
  StrCpy $1 0
  ${Do}
    StrCpy $2 $0 3 $1
    ${If} $2 == ""
      Return
    ${EndIf}
    IntOp $1 $1 + 1
  ${LoopUntil} $2 S== "/D="
  IntOp $1 $1 + 2
  ; Quotation marks are no part of it, nor is what parts it from a name below.
  StrCpy $3 ""
  ${Do}
    StrCpy $2 $0 1 $1
    ${If} $2 != '"'
      StrCpy $3 "$3$2"
    ${EndIf}
    IntOp $1 $1 + 1
  ${LoopUntil} $2 == ""
  ${Do}
    StrCpy $2 $3 1 -1
    ${If} $2 != "\"
    ${AndIf} $2 != " "
      ${ExitDo}
    ${EndIf}
    StrCpy $3 $3 -1
  ${Loop}
  ${If} $3 != $INSTDIR
    StrCpy $Obstacle "Turf Desk cannot be installed in $3."
    !insertmacro StopAtObstacle
  ${EndIf}
FunctionEnd

Function RemoveNew
  ; No folder can go that somebody is in.
  SetOutPath "$TEMP"
  RMDir /r "$INSTDIR\${NEW}"
  RMDir "$INSTDIR"
FunctionEnd

Function .onInstFailed
  Call RemoveNew
FunctionEnd

; Where something is left from an attempt that broke off, the uninstaller may be missing: the new one does as well.
Function RemoveInstalled
  StrCpy $2 "$Installed\Uninstall.exe"
  ${IfNot} ${FileExists} $2
    StrCpy $2 "$INSTDIR\${NEW}\Uninstall.exe"
  ${EndIf}
  ClearErrors
  ExecWait '"$2" /S /UPDATE _?=$Installed' $0
  ${If} ${Errors}
  ${OrIf} $0 <> 0
    StrCpy $Obstacle "The Turf Desk in $Installed could not be removed. Uninstall it and start again."
    !insertmacro StopAtObstacle
  ${EndIf}
  Delete "$Installed\Uninstall.exe"
  RMDir "$Installed"
FunctionEnd

; Inserts the macro ACTION for the path of each file of the stage, or of each folder with those below it first.
!macro ForEach KIND ACTION
  !tempfile LIST
  !system `cd "${STAGE}" && find . -depth -mindepth 1 -type ${KIND} ! -name turfdesk.ico | cut -c3- | sed 's,.*,!insertmacro ${ACTION} "&",' >"${LIST}"` = 0
  !include "${LIST}"
  !delfile "${LIST}"
  !undef LIST
!macroend
!macro ForEachFile ACTION
  !insertmacro ForEach f ${ACTION}
!macroend
!macro ForEachFolder ACTION
  !insertmacro ForEach d ${ACTION}
!macroend

; No file of somebody else's is replaced: a name that is taken is an error.
!macro Place PATH
  !searchreplace NATIVE_PATH "${PATH}" "/" "\"
  Rename "$INSTDIR\${NEW}\${NATIVE_PATH}" "$INSTDIR\${NATIVE_PATH}"
  !undef NATIVE_PATH
!macroend
!macro MakeFolder PATH
  !searchreplace NATIVE_PATH "${PATH}" "/" "\"
  CreateDirectory "$INSTDIR\${NATIVE_PATH}"
  !undef NATIVE_PATH
!macroend
!macro RemoveFile PATH
  !searchreplace NATIVE_PATH "${PATH}" "/" "\"
  Delete "$INSTDIR\${NATIVE_PATH}"
  !undef NATIVE_PATH
!macroend
!macro RemoveFolder PATH
  !searchreplace NATIVE_PATH "${PATH}" "/" "\"
  RMDir "$INSTDIR\${NATIVE_PATH}"
  !undef NATIVE_PATH
!macroend

Section "Turf Desk"
  SetRegView 64
  SetShellVarContext all
  Call FindObstacle
  !insertmacro StopAtObstacle
  ${If} $IsHere = 1
    StrCpy $INSTDIR $Installed
  ${EndIf}

  ; Until all is on the disk, whatever is installed stays as it is.
  RMDir /r "$INSTDIR\${NEW}"
  ClearErrors
  SetOutPath "$INSTDIR\${NEW}"
  SetOverwrite try
  File /r /x turfdesk.ico "${STAGE}/*"
  WriteUninstaller "$INSTDIR\${NEW}\Uninstall.exe"
  ${If} ${Errors}
    StrCpy $Obstacle "The files could not be written to $INSTDIR."
    !insertmacro StopAtObstacle
  ${EndIf}

  ; There is one entry to uninstall by and one owner of the file types: the Turf Desk that is installed goes first.
  ${If} $Installed != ""
    Call RemoveInstalled
  ${ElseIf} $Entered != ""
    ; Its folder was deleted by hand.
    !insertmacro GiveTypesBack "$Entered"
  ${EndIf}

  ; First what tells that the folder is ours: whatever happens below, it can be installed again or uninstalled.
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Turf Desk"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\TurfDesk.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Turf Desk contributors"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1

  ; The links in the Start menu get the current folder.
  SetOutPath "$INSTDIR"
  !insertmacro ForEachFolder MakeFolder
  ClearErrors
  !insertmacro Place "Uninstall.exe"
  !insertmacro ForEachFile Place
  ${If} ${Errors}
    StrCpy $Obstacle "Some files could not be written to $INSTDIR. Start again."
    !insertmacro StopAtObstacle
  ${EndIf}
  RMDir /r "$INSTDIR\${NEW}"

  CreateShortcut "$SMPROGRAMS\Turf Desk.lnk" "$INSTDIR\TurfDesk.exe"
  !insertmacro TakeTypes
SectionEnd

; Courses, libraries, packages and the game's settings are the user's and stay as they are. So does every file here that
; was not installed.
Section "Uninstall"
  SetRegView 64
  SetShellVarContext all
  StrCpy $Obstacle ""
  !insertmacro FindInstalled
  ${If} $IsHere = 0
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
  !insertmacro ForEachFile RemoveFile
  !insertmacro ForEachFolder RemoveFolder
  ; Left by an installation that broke off, or what is to be installed next.
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/UPDATE" $1
  ${If} ${Errors}
    RMDir /r "$INSTDIR\${NEW}"
  ${EndIf}
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
