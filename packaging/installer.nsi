; Installs the component. scripts/package builds the installer with these definitions:
;     VERSION   "1.0.0"
;     CLASS_ID  the identifier of the component's class, without braces
;     FILES     a generated script with the macros InstallFiles and InstallDevelopmentKernel
;     OUTPUT    the installer's file name
;
; By default, installs for the current user without administrator rights. Options:
;     /AllUsers   installs for the machine
;     /DevKernel  also installs the development kernel
;     /S          shows nothing and asks no questions
;     /D=FOLDER   chooses the folder. This must be the last option, and FOLDER has no quotes
; Exit codes: 0: complete; 1: the user has cancelled; 2: failed or refused; 3: a file is in use and nothing was changed.
Unicode true
SetCompressor /SOLID lzma
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include record.nsh

!define PRODUCT "Pelorix Back Process Manager"
!define REMOVAL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\K4TBackProcess"
!define CLASS_KEY "Software\Classes\K4TBackProcess.clsQmxBackProcess"
!define SERVER_KEY "Software\Classes\CLSID\{${CLASS_ID}}\InprocServer32"
; The component saves the position of its window in this key of the user's settings.
!define SETTINGS_KEY "Software\VB and VBA Program Settings"

Name "${PRODUCT} ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
ShowInstDetails show
ShowUninstDetails show
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey FileDescription "Installs the ${PRODUCT}"
VIAddVersionKey FileVersion "${VERSION}.0"
VIAddVersionKey LegalCopyright "Daventa"

Var hasEntries ; "yes" if the registry's uninstall entry belongs to this folder
Var scopeOption ; the tool's option for the scope: "--user", or empty for the machine
Var record ; the list of installed files, open for writing

Page directory
Page components KeepDevelopmentKernel
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

!insertmacro RecordFunctions ""
!insertmacro RecordFunctions "un."

; Visitor for EachRecorded. If $wanted is in the list, sets $found to "ours" for an unchanged file, otherwise to
; "recorded".
Function FindWanted
  ${If} $path == $wanted
    StrCpy $found "recorded"
    Call IsOurs
    ${If} $0 == "yes"
      StrCpy $found "ours"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Ends the program if the folder contains an installation by the first version of the set-up. That version kept no list,
; so this set-up cannot know which files it installed. The first version's uninstaller also deletes files of the suite.
Function RequireNoOldInstallation
  ReadRegStr $0 SHCTX "${REMOVAL_KEY}" UninstallString
  ${If} $0 == '"$INSTDIR\uninstall.exe"'
  ${AndIfNot} ${FileExists} "$INSTDIR\${RECORD}"
  ${AndIf} ${FileExists} "$INSTDIR\K4TBackProcess.dll"
    ${GiveUp} ${EXIT_FAILED} "$INSTDIR contains an installation by an earlier set-up, which kept no list of its files. Move \
      K4TBackProcess.dll, K4TBackProcess.manifest, backproc.exe and uninstall.exe out of the folder. Then run this set-up again. \
      Do not run that uninstall.exe: it also deletes QmxKrn2K.dll and README.md, even those of the suite. Nothing has been changed."
  ${EndIf}
FunctionEnd

; Ends the program if a file with this name exists, unless it is an unchanged file of the set-up.
!macro RequirePlace file
  StrCpy $wanted "${file}"
  StrCpy $found ""
  ${EachRecorded} FindWanted
  ${If} $found != "ours"
  ${AndIf} ${FileExists} "$INSTDIR\${file}"
    ${GiveUp} ${EXIT_FAILED} "$INSTDIR\${file} was not installed by this set-up, or it was changed since. Move it away, or \
      choose another folder. Nothing has been changed."
  ${EndIf}
!macroend

; Installs SOURCE, whose SHA-256 is HASH, as FILE. An existing file is kept.
!macro PlaceFile file folder hash source
  ${If} ${FileExists} "$INSTDIR\${file}"
    ${Note} "Left as it is, because this set-up did not install it or it was changed since: $INSTDIR\${file}"
  ${Else}
    CreateDirectory "$INSTDIR\${folder}"
    FileWrite $record "${hash} ${file}$\r$\n"
    ClearErrors
    File "/oname=$INSTDIR\${file}" "${source}"
    ${If} ${Errors}
      StrCpy $path "${file}"
      Call GiveUpWriting
    ${EndIf}
  ${EndIf}
!macroend
!include "${FILES}"

Function GiveUpWriting
  FileClose $record
  Delete "$INSTDIR\$path"
  ${GiveUp} ${EXIT_FAILED} "$INSTDIR\$path could not be written. Check that the disk is not full and that you may write to the \
    folder. The installation is incomplete: run this set-up again."
FunctionEnd

; Selects the scope and its default folder. Ends the program if the component is registered in the other scope, because
; the user's registration would hide the machine's.
Function ChooseUser
  SetShellVarContext current
  StrCpy $scopeOption "--user"
  ReadRegStr $0 HKLM "${CLASS_KEY}" ""
  ${If} $0 != ""
    ${GiveUp} ${EXIT_FAILED} "The component is already registered for all users of this machine. Remove that installation first, or run 'backproc unregister' as an administrator."
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${PRODUCT}"
  ${EndIf}
FunctionEnd

Function ChooseMachine
  SetShellVarContext all
  StrCpy $scopeOption ""
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 != "Admin"
    ${GiveUp} ${EXIT_FAILED} "Installing for all users needs administrator rights. Run set-up as an administrator, or without /AllUsers."
  ${EndIf}
  ReadRegStr $0 HKCU "${CLASS_KEY}" ""
  ${If} $0 != ""
    ${GiveUp} ${EXIT_FAILED} "The component is already registered for the current user. Remove that installation first, or run 'backproc unregister --user'."
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$PROGRAMFILES32\${PRODUCT}"
  ${EndIf}
FunctionEnd

; All checks run before the first change. The installer then deletes the unchanged files of an earlier set-up. Files
; that still exist belong to the user.
Section "-Make room"
  ${Note} "Folder $INSTDIR"
  Call RequireRecord
  Call RefuseWhileInUse
  Call RequireNoOldInstallation
  !insertmacro RequirePlace K4TBackProcess.dll
  !insertmacro RequirePlace backproc.exe
  !insertmacro RequirePlace ${UNINSTALLER}

  StrCpy $found ""
  ${EachRecorded} RemoveIfOurs
  ${If} $found != ""
    ${GiveUp} ${EXIT_FAILED} "$INSTDIR\$found could not be replaced. The installation is incomplete: run this set-up again."
  ${EndIf}
  CreateDirectory "$INSTDIR"
  ClearErrors
  FileOpen $record "$INSTDIR\${RECORD}" w
  ${If} ${Errors}
    ${GiveUp} ${EXIT_FAILED} "Cannot write to $INSTDIR. Choose another folder, or run set-up as an administrator."
  ${EndIf}
  FileWrite $record "${RECORD_HEAD}$\r$\n"
SectionEnd

; Ends the program if a file has the list's name, but not the list's first line. Such a file belongs to the user.
Function RequireRecord
  ${If} ${FileExists} "$INSTDIR\${RECORD}"
    FileOpen $0 "$INSTDIR\${RECORD}" r
    FileRead $0 $1
    FileClose $0
    ${If} $1 != "${RECORD_HEAD}$\r$\n"
      ${GiveUp} ${EXIT_FAILED} "$INSTDIR\${RECORD} is not the list of a set-up. Move it away, or choose another folder. \
        Nothing has been changed."
    ${EndIf}
  ${EndIf}
FunctionEnd

Section "Component, tool and documents"
  SectionIn RO
  !insertmacro InstallFiles
SectionEnd

Section /o "Development kernel" DEVELOPMENT_KERNEL
  !insertmacro InstallDevelopmentKernel
SectionEnd

Section "-Register"
  StrCpy $path "${UNINSTALLER}"
  ClearErrors
  WriteUninstaller "$INSTDIR\$path"
  ${If} ${Errors}
    Call GiveUpWriting
  ${EndIf}
  Push "$INSTDIR\$path"
  Call HashFile
  Pop $0
  FileWrite $record "$0 $path$\r$\n"
  FileClose $record

  ; A program that the installer starts searches the current folder for libraries. Therefore the current folder must be
  ; safe.
  SetOutPath $SYSDIR
  DetailPrint "Registering the component"
  nsExec::ExecToLog '"$INSTDIR\backproc.exe" register $scopeOption'
  Pop $0
  ${If} $0 != 0
    ${GiveUp} ${EXIT_FAILED} "The component could not be registered. Run 'backproc doctor' in $INSTDIR to see what to do."
  ${EndIf}

  WriteRegStr SHCTX "${REMOVAL_KEY}" DisplayName "${PRODUCT}"
  WriteRegStr SHCTX "${REMOVAL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${REMOVAL_KEY}" Publisher "Harnwell"
  WriteRegStr SHCTX "${REMOVAL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${REMOVAL_KEY}" UninstallString '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr SHCTX "${REMOVAL_KEY}" QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD SHCTX "${REMOVAL_KEY}" NoModify 1
  WriteRegDWORD SHCTX "${REMOVAL_KEY}" NoRepair 1
  ${Note} "Done"
SectionEnd

Function .onInit
  Push "Set-up of ${PRODUCT} ${VERSION}"
  Call BeginLog
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/DevKernel" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${DEVELOPMENT_KERNEL}
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${If} ${Errors}
    Call ChooseUser
  ${Else}
    Call ChooseMachine
  ${EndIf}
  Call KeepDevelopmentKernel
FunctionEnd

; An update keeps the development kernel if an earlier set-up installed it.
Function KeepDevelopmentKernel
  StrCpy $wanted "dev\QmxKrn2K.dll"
  StrCpy $found ""
  ${EachRecorded} FindWanted
  ${If} $found != ""
    !insertmacro SelectSection ${DEVELOPMENT_KERNEL}
  ${EndIf}
FunctionEnd

; Finds the scope of the installation in this folder. If the uninstall entry belongs to a later installation in another
; folder, the uninstaller removes only the files in this folder. A registration from another folder stays while its file
; exists.
Function un.onInit
  Push "Removal of ${PRODUCT} ${VERSION} from $INSTDIR"
  Call un.BeginLog
  StrCpy $hasEntries "yes"
  SetShellVarContext current
  StrCpy $scopeOption "--user"
  ReadRegStr $0 HKCU "${REMOVAL_KEY}" InstallLocation
  ${If} $0 != $INSTDIR
    SetShellVarContext all
    StrCpy $scopeOption ""
    ReadRegStr $0 HKLM "${REMOVAL_KEY}" InstallLocation
    ${If} $0 != $INSTDIR
      StrCpy $hasEntries "no"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function un.Unregister
  DetailPrint "Unregistering the component"
  nsExec::ExecToLog '"$INSTDIR\backproc.exe" unregister $scopeOption'
  Pop $0
  ${If} $0 != 0
    ${GiveUp} ${EXIT_FAILED} "The component could not be unregistered; nothing was removed. Run 'backproc unregister $scopeOption' in $INSTDIR to see why."
  ${EndIf}
FunctionEnd

; Sets $1 to "yes" if the class is registered with an existing file in another folder.
Function un.IsRegisteredElsewhere
  StrCpy $1 "no"
  ReadRegStr $0 SHCTX "${SERVER_KEY}" ""
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0"
    ; Compare short paths, because a path may contain long or short names.
    GetFullPathName /SHORT $0 "$0"
    GetFullPathName /SHORT $2 "$INSTDIR\K4TBackProcess.dll"
    ${If} $0 != $2
      StrCpy $1 "yes"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Remove the registration first, so that no program can find the component's file through the registry.
Section Uninstall
  Call un.RefuseWhileInUse
  SetOutPath $SYSDIR
  ${If} $hasEntries == "yes"
    Call un.IsRegisteredElsewhere
    ${If} $1 == "yes"
      DetailPrint "The component is registered from another folder; that registration is kept"
    ${Else}
      Call un.Unregister
    ${EndIf}
  ${EndIf}
  ${IfNot} ${FileExists} "$INSTDIR\${RECORD}"
    ${Note} "Left all files as they are, because the list of installed files is gone: $INSTDIR\${RECORD}"
  ${EndIf}
  ${EachRecorded} un.RemoveIfOurs
  ; The uninstaller cannot delete itself if it runs in its own folder. The list then stays, because a later set-up needs
  ; the list to recognise the uninstaller as its own.
  ${IfNot} ${FileExists} "$INSTDIR\${UNINSTALLER}"
    Delete "$INSTDIR\${RECORD}"
  ${EndIf}
  RMDir "$INSTDIR"
  ${If} $hasEntries == "yes"
    Call un.RemoveEntries
  ${EndIf}
  ${Note} "Done"
SectionEnd

Function un.RemoveEntries
  DeleteRegKey SHCTX "${REMOVAL_KEY}"
  DeleteRegKey HKCU "${SETTINGS_KEY}\Pelorix\K4TBACKPROCESS"
  DeleteRegKey /ifempty HKCU "${SETTINGS_KEY}\Pelorix"
  DeleteRegKey /ifempty HKCU "${SETTINGS_KEY}"
FunctionEnd
