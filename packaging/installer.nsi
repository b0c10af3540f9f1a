; The installer of the component. scripts/package builds it and gives it:
;     VERSION   "1.0.0"
;     CLASS_ID  of the component's class, without braces
;     FILES     a script with the macros InstallFiles and RemoveFiles, made from what ships
;     OUTPUT    the installer's file
;
; It installs for the current user, without an administrator's rights; with /AllUsers for the machine. /S asks nothing,
; /D=FOLDER (last, without quotes) chooses the folder. Exit codes: 0 done, 1 given up by the user, 2 failed.
Unicode true
SetCompressor /SOLID lzma
!include FileFunc.nsh
!include LogicLib.nsh
!include "${FILES}"

!define PRODUCT "Pelorix Back Process Manager"
!define REMOVAL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\K4TBackProcess"
!define CLASS_KEY "Software\Classes\K4TBackProcess.clsQmxBackProcess"
!define SERVER_KEY "Software\Classes\CLSID\{${CLASS_ID}}\InprocServer32"
; Where the component keeps the place of its window, in the user's settings.
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

Var hasEntries ; "yes" when the entry for the removal is this folder's
Var scopeOption ; what the tool is told: "--user", or nothing for the machine

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

!macro GiveUp message
  MessageBox MB_OK|MB_ICONSTOP "${message}" /SD IDOK
  SetErrorLevel 2
  Quit
!macroend

Function .onInit
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${If} ${Errors}
    Call ChooseUser
  ${Else}
    Call ChooseMachine
  ${EndIf}
FunctionEnd

; Two registrations would hide one another, so one scope refuses while the other is there.
Function ChooseUser
  SetShellVarContext current
  StrCpy $scopeOption "--user"
  ReadRegStr $0 HKLM "${CLASS_KEY}" ""
  ${If} $0 != ""
    !insertmacro GiveUp "The component is registered for all users of this machine already. Remove that installation first, or run 'backproc unregister' as an administrator."
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
    !insertmacro GiveUp "Installing for all users needs an administrator's rights. Run this as one, or without /AllUsers."
  ${EndIf}
  ReadRegStr $0 HKCU "${CLASS_KEY}" ""
  ${If} $0 != ""
    !insertmacro GiveUp "The component is registered for the current user already. Remove that installation first, or run 'backproc unregister --user'."
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$PROGRAMFILES32\${PRODUCT}"
  ${EndIf}
FunctionEnd

Section
  SetOverwrite try
  ClearErrors
  !insertmacro InstallFiles
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro GiveUp "Not all files could be written to $INSTDIR. Close the programs that use them, and try again."
  ${EndIf}

  DetailPrint "Registering the component"
  nsExec::ExecToLog '"$INSTDIR\backproc.exe" register $scopeOption'
  Pop $0
  ${If} $0 != 0
    !insertmacro GiveUp "The component could not be registered. Run 'backproc doctor' in $INSTDIR: it tells what to do."
  ${EndIf}

  WriteRegStr SHCTX "${REMOVAL_KEY}" DisplayName "${PRODUCT}"
  WriteRegStr SHCTX "${REMOVAL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${REMOVAL_KEY}" Publisher "Harnwell"
  WriteRegStr SHCTX "${REMOVAL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${REMOVAL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${REMOVAL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${REMOVAL_KEY}" NoModify 1
  WriteRegDWORD SHCTX "${REMOVAL_KEY}" NoRepair 1
SectionEnd

; What is removed is what this folder's own installation entered. When a later one went into another folder, the entries
; are that one's, and only the files go. A registration that was made from another folder stays while its file is there.
Function un.onInit
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

Function un.TakeRegistrationBack
  DetailPrint "Taking the registration back"
  nsExec::ExecToLog '"$INSTDIR\backproc.exe" unregister $scopeOption'
  Pop $0
  ${If} $0 != 0
    !insertmacro GiveUp "The registration could not be taken back; nothing was removed. 'backproc unregister $scopeOption' in $INSTDIR tells why."
  ${EndIf}
FunctionEnd

; $1 becomes "yes" when the class is registered from a file of another folder that is there.
Function un.IsRegisteredElsewhere
  StrCpy $1 "no"
  ReadRegStr $0 SHCTX "${SERVER_KEY}" ""
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0"
    ; Short names, as a folder has several long ones.
    GetFullPathName /SHORT $0 "$0"
    GetFullPathName /SHORT $2 "$INSTDIR\K4TBackProcess.dll"
    ${If} $0 != $2
      StrCpy $1 "yes"
    ${EndIf}
  ${EndIf}
FunctionEnd

; The registration first: once it is taken back nothing starts the component's file any more.
Section Uninstall
  ${If} $hasEntries == "yes"
    Call un.IsRegisteredElsewhere
    ${If} $1 == "yes"
      DetailPrint "The component is registered from another folder by now, and stays so"
    ${Else}
      Call un.TakeRegistrationBack
    ${EndIf}
  ${EndIf}
  !insertmacro RemoveFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  ${If} $hasEntries == "yes"
    Call un.RemoveEntries
  ${EndIf}
SectionEnd

Function un.RemoveEntries
  DeleteRegKey SHCTX "${REMOVAL_KEY}"
  DeleteRegKey HKCU "${SETTINGS_KEY}\Pelorix\K4TBACKPROCESS"
  DeleteRegKey /ifempty HKCU "${SETTINGS_KEY}\Pelorix"
  DeleteRegKey /ifempty HKCU "${SETTINGS_KEY}"
FunctionEnd
