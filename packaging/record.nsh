; Records which files in the folder belong to the set-up. The list K4TBackProcess.files names each installed file and
; the SHA-256 of its contents. A file belongs to the set-up while its contents match the list. Every other file belongs
; to the user. The set-up never replaces or deletes a user's file.
!define RECORD "K4TBackProcess.files"
!define RECORD_HEAD "; What the set-up of K4TBackProcess put into this folder: SHA-256, file"
!define HASH_LENGTH 64
!define UNINSTALLER "K4TBackProcess-uninstall.exe"
!define LOG "$TEMP\K4TBackProcess-setup.log"
!define EXIT_FAILED 2
!define EXIT_IN_USE 3

Var path ; the current file of the list, relative to $INSTDIR
Var hash ; the SHA-256 of the current file in the list
Var wanted ; the file that a visitor searches for
Var found ; the visitor's result

!macro Note text
  Push "${text}"
  !ifdef __UNINSTALL__
    Call un.Note
  !else
    Call Note
  !endif
!macroend
!define Note "!insertmacro Note"

; Writes the reason to the log, shows it unless the set-up is silent, and ends the program.
!macro GiveUp code reason
  ${Note} "${reason}"
  MessageBox MB_OK|MB_ICONSTOP "${reason}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend
!define GiveUp "!insertmacro GiveUp"

; Calls FUNCTION for each file of the list, with $path and $hash set.
!macro EachRecorded function
  GetFunctionAddress $0 ${function}
  !ifdef __UNINSTALL__
    Call un.EachRecorded
  !else
    Call EachRecorded
  !endif
!macroend
!define EachRecorded "!insertmacro EachRecorded"

; An installer and an uninstaller cannot share functions. Therefore each of them has a copy. UN is "" or "un.".
!macro RecordFunctions UN

; Pops a text. Appends the text to the log file and shows the text on the screen.
Function ${UN}Note
  System::Store S
  Pop $0
  DetailPrint "$0"
  ClearErrors
  FileOpen $1 "${LOG}" a
  ${IfNot} ${Errors}
    FileSeek $1 0 END
    FileWriteUTF16LE /BOM $1 "$0$\r$\n"
    FileClose $1
  ${EndIf}
  System::Store L
FunctionEnd

; Pops a text. Begins the log of this run with the time and the text.
Function ${UN}BeginLog
  Pop $7
  ${GetTime} "" "L" $0 $1 $2 $3 $4 $5 $6
  ${Note} "$2-$1-$0 $4:$5:$6 $7"
FunctionEnd

; Pops a file name. Pushes the SHA-256 of the file's contents, or "" if the file is empty or cannot be read.
Function ${UN}HashFile
  System::Store S
  Pop $0
  StrCpy $1 ""
  System::Call 'kernel32::CreateFileW(w r0, i 0x80000000, i 7, p 0, i 3, i 0, p 0) p .r2'
  System::Call 'kernel32::GetFileSize(p r2, p 0) i .r3'
  System::Call 'kernel32::CreateFileMappingW(p r2, p 0, i 2, i 0, i 0, p 0) p .r4'
  System::Call 'kernel32::MapViewOfFile(p r4, i 4, i 0, i 0, p 0) p .r5'
  ${If} $5 P<> 0
    System::Call 'advapi32::CryptAcquireContextW(*p .r6, p 0, p 0, i 24, i 0xF0000000)'
    System::Call 'advapi32::CryptCreateHash(p r6, i 0x800C, p 0, i 0, *p .r7)'
    System::Call 'advapi32::CryptHashData(p r7, p r5, i r3, i 0)'
    System::Alloc 32
    Pop $8
    System::Call 'advapi32::CryptGetHashParam(p r7, i 2, p r8, *i 32, i 0) i .r9'
    ${If} $9 <> 0
      ${For} $R0 0 31
        IntPtrOp $R1 $8 + $R0
        System::Call '*$R1(&i1 .R2)'
        IntOp $R2 $R2 & 0xFF
        IntFmt $R2 "%02x" $R2
        StrCpy $1 "$1$R2"
      ${Next}
    ${EndIf}
    System::Free $8
    System::Call 'advapi32::CryptDestroyHash(p r7)'
    System::Call 'advapi32::CryptReleaseContext(p r6, i 0)'
    System::Call 'kernel32::UnmapViewOfFile(p r5)'
  ${EndIf}
  System::Call 'kernel32::CloseHandle(p r4)'
  System::Call 'kernel32::CloseHandle(p r2)'
  Push $1
  System::Store L
FunctionEnd

; Calls the function at the address $0 for each file of the list, with $path and $hash set.
Function ${UN}EachRecorded
  ClearErrors
  FileOpen $1 "$INSTDIR\${RECORD}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileRead $1 $2
    ${If} ${Errors}
      ${Break}
    ${EndIf}
    StrCpy $hash $2 ${HASH_LENGTH}
    IntOp $3 ${HASH_LENGTH} + 1
    StrCpy $path $2 -2 $3
    ${If} $path != ""
      System::Store S
      Call $0
      System::Store L
    ${EndIf}
  ${Loop}
  FileClose $1
FunctionEnd

; Sets $0 to "yes" if the contents of $path match the list, "no" if they differ, "unknown" if the file cannot be read.
Function ${UN}IsOurs
  StrCpy $0 "no"
  Push "$INSTDIR\$path"
  Call ${UN}HashFile
  Pop $1
  ${If} $1 == $hash
    StrCpy $0 "yes"
  ${ElseIf} $1 == ""
    StrCpy $0 "unknown"
  ${EndIf}
FunctionEnd

; Visitor: sets $found to the name of an installed file that is unchanged or cannot be read, and that cannot be written,
; for example because the program is running. Ignores the uninstaller, which may be running now.
Function ${UN}FindInUse
  ${If} $path == "${UNINSTALLER}"
    Return
  ${EndIf}
  Call ${UN}IsOurs
  ${If} $0 != "no"
  ${AndIf} ${FileExists} "$INSTDIR\$path"
    ClearErrors
    FileOpen $1 "$INSTDIR\$path" a
    ${If} ${Errors}
      StrCpy $found $path
      ${Note} "In use or write-protected: $INSTDIR\$path"
    ${Else}
      FileClose $1
    ${EndIf}
  ${EndIf}
FunctionEnd

; Ends the program before the first change if an installed file is in use and the user does not free it.
Function ${UN}RefuseWhileInUse
  ${Do}
    StrCpy $found ""
    ${EachRecorded} ${UN}FindInUse
    ${If} $found == ""
      Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$INSTDIR\$found is in use or write-protected. \
      Close the programs that use it and try again. Nothing has been changed." /SD IDCANCEL IDRETRY again
    ${Note} "Cancelled. Nothing has been changed."
    SetErrorLevel ${EXIT_IN_USE}
    Quit
    again:
  ${Loop}
FunctionEnd

; Visitor: deletes an unchanged installed file and the folders that become empty. If the file cannot be deleted, sets
; $found to its name.
Function ${UN}RemoveIfOurs
  Call ${UN}IsOurs
  ${If} $0 == "yes"
    ClearErrors
    Delete "$INSTDIR\$path"
    ${If} ${Errors}
      StrCpy $found $path
      ${Note} "Could not be deleted: $INSTDIR\$path"
    ${EndIf}
    StrCpy $0 "$INSTDIR\$path"
    ${Do}
      ${Do}
        StrCpy $1 $0 1 -1
        StrCpy $0 $0 -1
      ${LoopUntil} $1 == "\"
      ${If} $0 == $INSTDIR
        ${Break}
      ${EndIf}
      RMDir $0
    ${Loop}
  ${ElseIf} ${FileExists} "$INSTDIR\$path"
    ${Note} "Left as it is, because it was changed after it was installed: $INSTDIR\$path"
  ${EndIf}
FunctionEnd
!macroend
