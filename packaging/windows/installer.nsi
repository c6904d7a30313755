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
; Tells that this folder is ours.
!define MARK "TurfDesk-setup"

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
; Is the folder that is entered the one to install in, or to uninstall from?
Var IsHere
; Has anything been written, and was there no such folder before?
Var HasBegun
Var IsNewFolder
; Why nothing can be done, or empty.
Var Obstacle

!macro StopAtObstacle
  ${If} $Obstacle != ""
    MessageBox MB_OK|MB_ICONSTOP $Obstacle /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
!macroend

; Windows lets nobody write to a program that is running. 0x40010000 asks to write and to delete, 7 lets all others do
; what they like, 3 opens only what is there, and 32 says that somebody else has it open.
!macro FindInUse FILE
  System::Call 'kernel32::CreateFileW(w "${FILE}", i 0x40010000, i 7, p 0, i 3, i 0, p 0) p .r0 ?e'
  Pop $1
  ${If} $0 P<> -1
    System::Call 'kernel32::CloseHandle(p r0)'
  ${ElseIf} $1 = 32
    StrCpy $Obstacle "${FILE} is in use. Close Turf Desk, or what else has it open, and start again."
  ${EndIf}
!macroend

; 0x400 is a link to a folder elsewhere, which the system would remove however full that is. -1 is nothing at all.
!macro RemoveEmptyFolder FOLDER
  System::Call 'kernel32::GetFileAttributesW(w "${FOLDER}") i .r0'
  IntOp $0 $0 & 0x400
  ${If} $0 = 0
    RMDir "${FOLDER}"
  ${EndIf}
!macroend

; Inserts the macro ACTION for the path of each file of the stage, or of each folder with those below it first.
!macro ForEach KIND ACTION
  !tempfile LIST
  !system `cd "${STAGE}" && find . -depth -mindepth 1 -type ${KIND} ! -name turfdesk.ico | cut -c3- | sed 's,.*,!insertmacro Native ${ACTION} "&",' >"${LIST}"` = 0
  !include "${LIST}"
  !delfile "${LIST}"
  !undef LIST
!macroend
!macro Native ACTION PATH
  !searchreplace NATIVE_PATH "${PATH}" "/" "\"
  !insertmacro ${ACTION} "${NATIVE_PATH}"
  !undef NATIVE_PATH
!macroend
!macro ForEachFile ACTION
  !insertmacro ForEach f ${ACTION}
!macroend
!macro ForEachFolder ACTION
  !insertmacro ForEach d ${ACTION}
!macroend

!macro FindInstalledInUse PATH
  !insertmacro FindInUse "$Installed\${PATH}"
!macroend
!macro FindFileForFolder PATH
  ${If} ${FileExists} "$INSTDIR\${PATH}"
  ${AndIfNot} ${FileExists} "$INSTDIR\${PATH}\*.*"
    StrCpy $Obstacle "$INSTDIR\${PATH} has the name of a folder to be made. Give it another name and start again."
  ${EndIf}
!macroend
; What was installed goes before this is called: a name that is taken is somebody's.
!macro Place PATH
  ${If} ${FileExists} "$INSTDIR\${PATH}"
    Rename "$INSTDIR\${PATH}" "$INSTDIR\${PATH}.old"
  ${EndIf}
  Rename "$INSTDIR\${NEW}\${PATH}" "$INSTDIR\${PATH}"
!macroend
!macro MakeFolder PATH
  CreateDirectory "$INSTDIR\${PATH}"
!macroend
!macro RemoveFile PATH
  Delete "$INSTDIR\${PATH}"
!macroend
!macro RemoveFolder PATH
  !insertmacro RemoveEmptyFolder "$INSTDIR\${PATH}"
!macroend
!macro RemoveNewFile PATH
  Delete "$INSTDIR\${NEW}\${PATH}"
!macroend
!macro RemoveNewFolder PATH
  !insertmacro RemoveEmptyFolder "$INSTDIR\${NEW}\${PATH}"
!macroend

; Deletes by name what was put there, and nothing else.
!macro RemoveNew
  !insertmacro ForEachFile RemoveNewFile
  !insertmacro ForEachFolder RemoveNewFolder
  Delete "$INSTDIR\${NEW}\Uninstall.exe"
  Delete "$INSTDIR\${NEW}\${MARK}"
  !insertmacro RemoveEmptyFolder "$INSTDIR\${NEW}"
!macroend

; A folder can be spelt in several ways; its short name is one, while it exists.
!macro FindInstalled
  StrCpy $Installed ""
  StrCpy $IsHere 0
  ReadRegStr $Entered HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $Entered != ""
    ${If} ${FileExists} "$Entered\TurfDesk.exe"
    ${OrIf} ${FileExists} "$Entered\Uninstall.exe"
    ${OrIf} ${FileExists} "$Entered\${NEW}\${MARK}"
      StrCpy $Installed $Entered
    ${EndIf}
    GetFullPathName /SHORT $0 $Entered
    GetFullPathName /SHORT $1 $INSTDIR
    ${If} $Entered == $INSTDIR
    ${OrIf} $0 == $1
      ${If} ${FileExists} "$INSTDIR\*.*"
        StrCpy $IsHere 1
      ${EndIf}
    ${EndIf}
  ${EndIf}
!macroend

; Other people's files may have the names of ours: a folder that is not ours has to be empty. An uninstaller that was
; told its folder cannot delete itself.
Function FindForeignFiles
  FindFirst $0 $1 "$INSTDIR\*.*"
  ${DoWhile} $1 != ""
    ${If} $1 != "."
    ${AndIf} $1 != ".."
    ${AndIf} $1 != "Uninstall.exe"
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
  ${If} ${FileExists} "$INSTDIR\${NEW}\*.*"
  ${AndIfNot} ${FileExists} "$INSTDIR\${NEW}\${MARK}"
    StrCpy $Obstacle "The folder $INSTDIR\${NEW} is somebody else's. Choose another folder."
  ${EndIf}
  !insertmacro ForEachFolder FindFileForFolder
  ${If} $Installed != ""
    !insertmacro ForEachFile FindInstalledInUse
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

Function .onInstFailed
  ${If} $HasBegun = 1
    ; No folder can go that somebody is in.
    SetOutPath "$TEMP"
    !insertmacro RemoveNew
    ${If} $IsNewFolder = 1
      !insertmacro RemoveEmptyFolder "$INSTDIR"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Where something is left from an attempt that broke off, the uninstaller may be missing: the new one does as well.
Function RemoveInstalled
  StrCpy $2 "$Installed\Uninstall.exe"
  ${IfNot} ${FileExists} $2
    StrCpy $2 "$INSTDIR\${NEW}\Uninstall.exe"
  ${EndIf}
  ; What it starts would have the new folder for its own, which then could not go.
  SetOutPath "$TEMP"
  ClearErrors
  ExecWait '"$2" /S /UPDATE _?=$Installed' $0
  ${If} ${Errors}
  ${OrIf} $0 <> 0
    StrCpy $Obstacle "The Turf Desk in $Installed could not be removed. Uninstall it and start again."
    !insertmacro StopAtObstacle
  ${EndIf}
  Delete "$Installed\Uninstall.exe"
  ${If} $IsHere = 0
    !insertmacro RemoveEmptyFolder "$Installed"
  ${EndIf}
FunctionEnd

Section "Turf Desk"
  SetRegView 64
  SetShellVarContext all
  Call FindObstacle
  !insertmacro StopAtObstacle
  ${If} $IsHere = 1
    StrCpy $INSTDIR $Entered
  ${EndIf}

  ; Until all is on the disk, whatever is installed stays as it is.
  StrCpy $IsNewFolder 0
  ${IfNot} ${FileExists} "$INSTDIR\*.*"
    StrCpy $IsNewFolder 1
  ${EndIf}
  StrCpy $HasBegun 1
  ; Left by an attempt that broke off.
  !insertmacro RemoveNew
  SetOutPath "$INSTDIR\${NEW}"
  SetOverwrite try
  ClearErrors
  FileOpen $0 "$INSTDIR\${NEW}\${MARK}" w
  FileClose $0
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
    ; Its files were deleted by hand.
    !insertmacro GiveTypesBack "$Entered"
  ${EndIf}

  ; First what tells that the folder is ours: whatever happens below, it can be installed again or uninstalled.
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Turf Desk"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\TurfDesk.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Turf Desk contributors"
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
  !insertmacro RemoveNew

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
  ${If} $Installed != ""
    !insertmacro ForEachFile FindInstalledInUse
  ${EndIf}
  !insertmacro StopAtObstacle

  ClearErrors
  !insertmacro ForEachFile RemoveFile
  ${If} ${Errors}
    StrCpy $Obstacle "Some files could not be deleted. Close Turf Desk and start again."
    !insertmacro StopAtObstacle
  ${EndIf}
  !insertmacro ForEachFolder RemoveFolder
  ; The paths as they were entered, however this folder was spelt now.
  !insertmacro GiveTypesBack "$Entered"
  Delete "$SMPROGRAMS\Turf Desk.lnk"
  ; An update enters what it installs, and goes on from where it was stopped by the entry.
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/UPDATE" $1
  ${If} ${Errors}
    !insertmacro RemoveNew
    Delete "$INSTDIR\Uninstall.exe"
    !insertmacro RemoveEmptyFolder "$INSTDIR"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
  ${EndIf}
SectionEnd
