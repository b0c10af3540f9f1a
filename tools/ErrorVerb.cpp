// `backproc error`: an error reported to the user as the component reports it.
#include "services/MessageTexts.h"
#include "tools/MessageArguments.h"
#include "tools/MessageService.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc error [--] NUMBER DETAIL

Shows the component's error message NUMBER with DETAIL and waits until it is closed. Known are 1, 2, 3, 4, 21, 22, 23,
24 and 101; any other number shows an empty message, as in the component. NUMBER is decimal, or hexadecimal after 0x.
DETAIL may begin with '--'; a '--' before NUMBER is skipped.

Example:
  backproc error 101 R1
)";

int RunError(const Arguments& arguments, Console& /*console*/) {
    const std::size_t first = !arguments.empty() && arguments[0] == kEndOfOptions ? 1 : 0;
    if (arguments.size() != first + 2) throw UsageError("takes [--] NUMBER DETAIL");
    std::int32_t number = ReadNumber(arguments[first], "NUMBER");
    PrepareMessages();
    services::ShowError(number, arguments[first + 1]);
    return kSuccess;
}

}  // namespace

const Verb kErrorVerb = {"error", "Shows an error message of the component", kHelp, RunError};

}  // namespace tools
