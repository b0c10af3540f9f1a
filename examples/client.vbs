' This script is a late-bound client of the component in VBScript. Run the script with the 32-bit script host:
'     cscript //nologo client.vbs
' The script uses every member and prints each step. The exit code is 0 if every step succeeds. The script connects no
' events; client.cpp connects an event sink.
Option Explicit

Dim failures : failures = 0

' Prints the result of a step. A result that differs from the expected one counts as a failure.
Sub Step(what, got, expected)
    WScript.Echo what & ": " & got
    If CStr(got) <> CStr(expected) Then
        WScript.Echo "  failed: expected " & expected
        failures = failures + 1
    End If
End Sub

' Passes Null in place of a string. Prints the error and returns the error's number. Returns 0 if there is no error.
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

    ' Load takes its integer by reference. Pass a plain variable. The variable keeps its value.
    Dim mode : mode = 3
    Step "Load of the main form", backProcess.Load(mode), True
    Step "its argument afterwards", mode, 3

    ' Both arguments of NotifyMe are optional.
    backProcess.NotifyMe
    WScript.Echo "NotifyMe without arguments: done"
    backProcess.NotifyMe "EDITOR"
    WScript.Echo "NotifyMe with a name alone: done"
    backProcess.NotifyMe , "All,RD"
    WScript.Echo "NotifyMe with a command alone: done"
    backProcess.NotifyMe "EDITOR", "All,SAVE"
    WScript.Echo "NotifyMe with both: done"

    ' An argument that can be converted to a string is accepted. The variables keep their values.
    Dim name, command
    name = 12
    command = "All,UP"
    backProcess.NotifyMe name, command
    Step "NotifyMe with a number as name, the command afterwards", command, "All,UP"

    ' SeverPath accepts a string, but reading SeverPath always returns an empty string.
    backProcess.SeverPath = "C:\JOB"
    Step "SeverPath after C:\JOB was put", "[" & backProcess.SeverPath & "]", "[]"

    ' An argument that cannot be converted to a string raises an error and changes nothing.
    Step "NotifyMe with Null as command was refused", ErrorOfNull(backProcess) <> 0, True

    Set backProcess = Nothing
    WScript.Echo "released"
End Sub

' An unexpected error ends UseEveryMember. The following lines print the error.
On Error Resume Next
UseEveryMember
If Err.Number <> 0 Then
    WScript.Echo "failed: error " & Err.Number & ": " & Err.Description
    failures = failures + 1
End If

If failures > 0 Then WScript.Quit 1
