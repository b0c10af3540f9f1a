// `backproc modules`: the suite's modules as this component would find them.
#include <ostream>

#include "host/Composition.h"
#include "routing/ModuleList.h"
#include "runtime/win32/WindowsHeaders.h"
#include "tools/Display.h"
#include "tools/SplitGuard.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc modules

Shows the modules that the shared string "AllAps" lists, one a line with its number and a tab; this component's own
entry is marked with a further tab and 'own'. Prints nothing when there is no list. For a list with a quoted field that
is never closed the tool waits ten seconds and fails.

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc modules
)";

int RunModules(const Arguments& arguments, Console& console) {
    AtMost(0, arguments);
    host::EnsureComposed(GetModuleHandleW(nullptr));
    SplitOrEnd("modules", "a field of \"AllAps\"", routing::ReadModuleList, console);
    for (std::int32_t i = 1; i <= routing::ModuleCount; ++i) {
        const bool isOwn = i == routing::OwnModuleIndex;
        console.out << i << '\t' << Display(routing::ModuleNames[static_cast<std::size_t>(i)])
                    << (isOwn ? "\town\n" : "\n");
    }
    return kSuccess;
}

}  // namespace

const Verb kModulesVerb = {"modules", "Shows the suite's modules", kHelp, RunModules};

}  // namespace tools
