// Implements `backproc strings`. The verb shows and sets the suite's shared strings.
#include <ostream>

#include "runtime/win32/ModulePath.h"
#include "tools/ClientView.h"
#include "tools/Display.h"
#include "tools/SharedStrings.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc strings
       backproc strings get KEY
       backproc strings set KEY VALUE

Shows all strings that the modules of the suite share, sorted by key, one KEY=[VALUE] per line. Only the development
kernel can list its strings. 'get' shows one string and fails if it is not set. 'set' sets one string. A control
character inside a text is shown as a visible character.

The verb uses the kernel library that clients of the registered component load. If the component is not in the tool's
folder, a line on standard error names the component's file and the kernel's file. The kernel stores texts in the ANSI
code page. 'set' reports a text that the kernel changed.

The strings exist while any process uses the kernel. A string that is set here is lost when this process ends, unless
another process, such as a module or 'backproc host', uses the kernel.

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc strings set LANGUAGEPATH "C:\Orvane\LANG\de"
)";

int ShowAll(SharedStrings& strings, Console& console) {
    const std::map<String, String> all = strings.All();
    for (const auto& [key, value] : all) console.out << Display(key) << "=[" << Display(value) << "]\n";
    if (all.empty()) {
        console.err << "backproc strings: " << Display(strings.Library())
                    << " has no strings; strings exist only while a program uses this kernel\n";
    }
    return kSuccess;
}

int ShowOne(SharedStrings& strings, const String& key, Console& console) {
    const std::optional<String> value = strings.Get(key);
    if (!value)
        throw std::runtime_error("there is no string " + Quoted(key) + "; 'backproc strings' lists all strings");
    console.out << Display(key) << "=[" << Display(*value) << "]\n";
    return kSuccess;
}

/// Sets the string. The kernel stores ANSI text and may change the value. If the stored value differs from `value`,
/// prints the stored value.
void SetOne(SharedStrings& strings, const String& key, const String& value, Console& console) {
    strings.Set(key, value);
    const String kept = strings.Get(key).value_or(u"");
    if (kept != value) {
        console.err << "backproc strings: the kernel stored [" << Display(kept)
                    << "]; the ANSI code page lacks a character, or the kernel changed the value\n";
    }
}

int RunStrings(const Arguments& arguments, Console& console) {
    const bool sets = !arguments.empty() && arguments[0] == u"set";
    if (!arguments.empty() && !sets && arguments[0] != u"get") {
        throw UsageError("unknown action " + Quoted(arguments[0]) + "; expected 'get' or 'set'");
    }
    if (arguments.size() == 1) throw Missing("KEY");
    if (sets && arguments.size() == 2) throw Missing("VALUE");
    RequireAtMost(sets ? 3 : 2, arguments);
    const ComponentInForce component = FindComponent();
    PrintWhichComponent("strings", component, console.err);
    SharedStrings strings(MakeKernelOfClients(runtime::win32::FolderOf(component.library)));
    if (arguments.empty()) return ShowAll(strings, console);
    if (!sets) return ShowOne(strings, arguments[1], console);
    SetOne(strings, arguments[1], arguments[2], console);
    return kSuccess;
}

}  // namespace

const Verb kStringsVerb = {"strings", "Shows or sets the strings that the modules share", kHelp, RunStrings};

}  // namespace tools
