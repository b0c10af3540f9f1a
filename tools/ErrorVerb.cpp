// Implements `backproc error`. The verb shows an error message in the same way as the component.
#include "services/MessageTexts.h"
#include "tools/MessageService.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc error [--] NUMBER DETAIL

Shows the component's error message NUMBER with DETAIL and waits until it is closed.

  NUMBER  1, 2, 3, 4, 21, 22, 23, 24 or 101; any other 32-bit number shows an empty message, as in the component.
          Decimal, or hexadecimal after 0x
  DETAIL  what the message is about; may begin with '--' or be empty: ""
  --      optional; ends the options

Exit code: 0 shown and closed, 1 failed, 2 bad usage.

Example:
  backproc error 101 R1
)";

int RunError(const Arguments& arguments, Console& /*console*/) {
    const std::size_t first = !arguments.empty() && arguments[0] == kEndOfOptions ? 1 : 0;
    if (arguments.size() == first) throw Missing("NUMBER");
    if (arguments.size() == first + 1) throw Missing("DETAIL");
    RequireAtMost(first + 2, arguments);
    std::int32_t number = ReadNumber(arguments[first], "NUMBER");
    PrepareMessages();
    services::ShowError(number, arguments[first + 1]);
    return kSuccess;
}

}  // namespace

const Verb kErrorVerb = {"error", "Shows an error message of the component", kHelp, RunError};

}  // namespace tools
