// `backproc strings`: the suite's shared strings, looked at and set from outside.
#include <ostream>

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

Shows the strings that the modules of the suite share, sorted by key, one KEY=[VALUE] a line; or shows one string;
or sets one. 'get' fails when there is no such string. A control character inside a text is shown by its picture.

The strings live as long as a process uses the kernel: what is set here is gone with this process unless another one
(a module, 'backproc host') holds the kernel meanwhile.

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc strings set LANGUAGEPATH "C:\Orvane\LANG\de"
)";

int ShowAll(SharedStrings& strings, Console& console) {
    for (const auto& [key, value] : strings.All()) {
        console.out << Display(key) << "=[" << Display(value) << "]\n";
    }
    return kSuccess;
}

int ShowOne(SharedStrings& strings, const String& key, Console& console) {
    const std::optional<String> value = strings.Get(key);
    if (!value)
        throw std::runtime_error("there is no string " + Quoted(key) +
                                 "; 'backproc strings' shows those that there are");
    console.out << Display(key) << "=[" << Display(*value) << "]\n";
    return kSuccess;
}

int RunStrings(const Arguments& arguments, Console& console) {
    const bool sets = !arguments.empty() && arguments[0] == u"set";
    if (!arguments.empty() && !sets && arguments[0] != u"get") {
        throw UsageError("takes 'get', 'set' or nothing, not " + Quoted(arguments[0]));
    }
    if (arguments.size() == 1) throw Missing("KEY");
    if (sets && arguments.size() == 2) throw Missing("VALUE");
    AtMost(sets ? 3 : 2, arguments);
    SharedStrings strings;
    if (arguments.empty()) return ShowAll(strings, console);
    if (!sets) return ShowOne(strings, arguments[1], console);
    strings.Set(arguments[1], arguments[2]);
    return kSuccess;
}

}  // namespace

const Verb kStringsVerb = {"strings", "Shows or sets the strings that the modules share", kHelp, RunStrings};

}  // namespace tools
