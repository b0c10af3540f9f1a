; Which files of the folder are the set-up's own. The list K4TBackProcess.files in the folder names each file that was put
; there, with the SHA-256 of its contents. A file belongs to the set-up as long as its contents are those of the list.
; Every other file belongs to the user: it is never replaced and never deleted.
!define RECORD "K4TBackProcess.files"
!define RECORD_HEAD "; What the set-up of K4TBackProcess put into this folder: SHA-256, file"
!define HASH_LENGTH 64
!define UNINSTALLER "K4TBackProcess-uninstall.exe"
!define LOG "$TEMP\K4TBackProcess-setup.log"
!define EXIT_FAILED 2
!define EXIT_IN_USE 3

Var path ; a file of the list, below $INSTDIR
Var hash ; the SHA-256 that the list has for it
Var wanted ; the file that a visitor looks for
Var found ; what a visitor found

!macro Note text
  Push "${text}"
  !ifdef __UNINSTALL__
    Call un.Note
  !else
    Call Note
  !endif
!macroend
!define Note "!insertmacro Note"

; Ends the program. The reason is shown, and it is in the log file.
!macro GiveUp code reason
  ${Note} "${reason}"
  MessageBox MB_OK|MB_ICONSTOP "${reason}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend
!define GiveUp "!insertmacro GiveUp"

; Calls FUNCTION with $path and $hash of each file of the list.
!macro EachRecorded function
  GetFunctionAddress $0 ${function}
  !ifdef __UNINSTALL__
    Call un.EachRecorded
  !else
    Call EachRecorded
  !endif
!macroend
!define EachRecorded "!insertmacro EachRecorded"

; Installer and uninstaller share no functions, so each has them under a name of its own: UN is "" or "un.".
!macro RecordFunctions UN

; Adds the text on the stack to the log file and to the lines on the screen.
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

; Begins the log of this run: when, and the text on the stack.
Function ${UN}BeginLog
  Pop $7
  ${GetTime} "" "L" $0 $1 $2 $3 $4 $5 $6
  ${Note} "$2-$1-$0 $4:$5:$6 $7"
FunctionEnd

; On the stack: a file, which becomes the SHA-256 of its contents, or "" when it is empty or cannot be read.
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

; Calls the function at the address $0 with $path and $hash of each file of the list.
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

; $0 becomes "yes" when $path has the contents of the list, "no" when it has others, "unknown" when it cannot be read.
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

; Visitor: $found becomes the path of a file of ours that cannot be written, as those of running programs are. The
; uninstaller itself does not count, because it may be running right now.
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
      ${Note} "In use, or protected against writing: $INSTDIR\$path"
    ${Else}
      FileClose $1
    ${EndIf}
  ${EndIf}
FunctionEnd

; Ends the program, before anything is changed, while a file of ours is in use.
Function ${UN}RefuseWhileInUse
  ${Do}
    StrCpy $found ""
    ${EachRecorded} ${UN}FindInUse
    ${If} $found == ""
      Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$INSTDIR\$found is in use, or protected against writing. \
      Close the programs that use it and try again. Nothing has been changed." /SD IDCANCEL IDRETRY again
    ${Note} "Given up. Nothing has been changed."
    SetErrorLevel ${EXIT_IN_USE}
    Quit
    again:
  ${Loop}
FunctionEnd

; Visitor: deletes a file of ours, and the folders that it leaves empty. $found becomes a file that could not be deleted.
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
