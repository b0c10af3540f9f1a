// This script is a late-bound client of the component in JScript. Run the script with the 32-bit script host:
//     cscript //nologo client.js
// The script uses every member and prints each step. The exit code is 0 if every step succeeds. The script connects no
// events; client.cpp connects an event sink.

var failures = 0;

// Prints the result of a step. A result that differs from the expected one counts as a failure.
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

    // Load takes its integer by reference. Pass a plain variable. The variable keeps its value.
    var mode = 3;
    step("Load of the main form", backProcess.Load(mode), true);
    step("its argument afterwards", mode, 3);

    // Both arguments of NotifyMe are optional.
    backProcess.NotifyMe();
    WScript.Echo("NotifyMe without arguments: done");
    backProcess.NotifyMe("EDITOR");
    WScript.Echo("NotifyMe with a name alone: done");
    backProcess.NotifyMe("", "All,RD");
    WScript.Echo("NotifyMe with a command alone: done");
    backProcess.NotifyMe("EDITOR", "All,SAVE");
    WScript.Echo("NotifyMe with both: done");

    // An argument that can be converted to a string is accepted.
    backProcess.NotifyMe(12, "All,UP");
    WScript.Echo("NotifyMe with a number as name: done");

    // SeverPath accepts a string, but reading SeverPath always returns an empty string.
    backProcess.SeverPath = "C:\\JOB";
    step("SeverPath after C:\\JOB was put", backProcess.SeverPath, "");

    // An argument that cannot be converted to a string raises an error and changes nothing.
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
