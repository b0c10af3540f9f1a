' A client of the component in VBScript: late bound. Run it with the 32-bit script host:
'     cscript //nologo client.vbs
' It uses every member and shows each step; the exit code is 0 when all went well. The script host cannot connect
' events to a late-bound object; client.cpp shows them.
Option Explicit

Dim failures : failures = 0

' Shows what a step gave, and counts it as a failure when that is not what the component promises.
Sub Step(what, got, expected)
    WScript.Echo what & ": " & got
    If CStr(got) <> CStr(expected) Then
        WScript.Echo "  failed: expected " & expected
        failures = failures + 1
    End If
End Sub

' Gives the number of the error that a Null in place of a string raises, and shows it; 0 when there was none.
Function ErrorOfNull(backProcess)
    On Error Resume Next
    backProcess.NotifyMe "EDITOR", Null
    ErrorOfNull = Err.Number
    If Err.Number <> 0 Then WScript.Echo "error " & Err.Number & ": " & Err.Description
    Err.Clear
End Function

Sub UseEveryMember()
    Dim backProcess
    Set backProcess = CreateObject("K4TBackProcess.clsQmxBackProcess")
    WScript.Echo "created"

    ' Load takes its integer by reference: a plain variable serves.
    Dim mode : mode = 3
    Step "Load brings the main form up", backProcess.Load(mode), True
    Step "its argument afterwards", mode, 3

    ' Both arguments of NotifyMe may be left out.
    backProcess.NotifyMe
    WScript.Echo "NotifyMe without arguments: done"
    backProcess.NotifyMe "EDITOR"
    WScript.Echo "NotifyMe with a name alone: done"
    backProcess.NotifyMe , "All,RD"
    WScript.Echo "NotifyMe with a command alone: done"
    backProcess.NotifyMe "EDITOR", "All,SAVE"
    WScript.Echo "NotifyMe with both: done"

    ' What converts to a string will do; the variables are not changed.
    Dim name, command
    name = 12
    command = "All,UP"
    backProcess.NotifyMe name, command
    Step "NotifyMe with a number as name, the command afterwards", command, "All,UP"

    ' SeverPath takes a string and never gives it back.
    backProcess.SeverPath = "C:\JOB"
    Step "SeverPath after C:\JOB was put", "[" & backProcess.SeverPath & "]", "[]"

    ' An argument that is no string and cannot become one raises an error and changes nothing.
    Step "NotifyMe with Null as command was refused", ErrorOfNull(backProcess) <> 0, True

    Set backProcess = Nothing
    WScript.Echo "released"
End Sub

' An error that nobody expected ends UseEveryMember and is shown here.
On Error Resume Next
UseEveryMember
If Err.Number <> 0 Then
    WScript.Echo "failed: error " & Err.Number & ": " & Err.Description
    failures = failures + 1
End If

If failures > 0 Then WScript.Quit 1
