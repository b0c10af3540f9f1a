// `backproc modules`: the suite's modules as this component would find them.
#include <ostream>

#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "routing/ModuleList.h"
#include "tools/ClientView.h"
#include "tools/ClosedQuotes.h"
#include "tools/Display.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc modules

Shows the modules that the shared string "AllAps" lists, one a line with its number and a tab; this component's own
entry is marked with a further tab and 'own'. Fails for a list that cannot be split, and names its field.

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc modules
)";

int RunModules(const Arguments& arguments, Console& console) {
    AtMost(0, arguments);
    SayWhichComponent("modules", ComposeAsClient("modules", console.err), console.err);
    RequireClosedQuotes(kernel_api::CurrentReader().TextAt(kernel_api::CurrentKernel().E_GetString(u"AllAps")));
    routing::ReadModuleList();
    if (routing::ModuleCount == 0) console.err << "backproc modules: the shared string \"AllAps\" lists no module\n";
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
