// A client of the component in JScript: late bound. Run it with the 32-bit script host:
//     cscript //nologo client.js
// It uses every member and shows each step; the exit code is 0 when all went well. The script host cannot connect
// events to a late-bound object; client.cpp shows them.

var failures = 0;

// Shows what a step gave, and counts it as a failure when that is not what the component promises.
function step(what, got, expected) {
    WScript.Echo(what + ": " + got);
    if (got !== expected) {
        WScript.Echo("  failed: expected " + expected);
        failures++;
    }
}

function useEveryMember() {
    var backProcess = new ActiveXObject("K4TBackProcess.clsQmxBackProcess");
    WScript.Echo("created");

    // Load takes its integer by reference: a plain variable serves, and keeps its value.
    var mode = 3;
    step("Load brings the main form up", backProcess.Load(mode), true);
    step("its argument afterwards", mode, 3);

    // Both arguments of NotifyMe may be left out, from the last one on.
    backProcess.NotifyMe();
    WScript.Echo("NotifyMe without arguments: done");
    backProcess.NotifyMe("EDITOR");
    WScript.Echo("NotifyMe with a name alone: done");
    backProcess.NotifyMe("", "All,RD");
    WScript.Echo("NotifyMe with a command alone: done");
    backProcess.NotifyMe("EDITOR", "All,SAVE");
    WScript.Echo("NotifyMe with both: done");

    // What converts to a string will do.
    backProcess.NotifyMe(12, "All,UP");
    WScript.Echo("NotifyMe with a number as name: done");

    // SeverPath takes a string and never gives it back.
    backProcess.SeverPath = "C:\\JOB";
    step("SeverPath after C:\\JOB was put", backProcess.SeverPath, "");

    // An argument that is no string and cannot become one raises an error and changes nothing.
    var refused = null;
    try {
        backProcess.NotifyMe("EDITOR", null);
    } catch (error) {
        refused = error;
    }
    step("NotifyMe with null as command was refused", refused !== null, true);
    if (refused !== null) WScript.Echo("  error " + refused.number + ": " + refused.message);

    backProcess = null;
    CollectGarbage();
    WScript.Echo("released");
}

try {
    useEveryMember();
} catch (error) {
    WScript.Echo("failed: error " + error.number + ": " + error.message);
    failures++;
}
WScript.Quit(failures > 0 ? 1 : 0);
