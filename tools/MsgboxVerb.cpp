// `backproc msgbox`: the suite's own message box.
#include <ostream>

#include "services/MessageTexts.h"
#include "tools/MessageArguments.h"
#include "tools/MessageService.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc msgbox [--flags N] [--title T] [--language FOLDER] [--] PROMPT

Shows the suite's message box and prints the code of its answer, which is also the exit code: Yes 6, No 7,
Yes To All 8, Cancel or closed 2. In PROMPT '\n' is a line break. N is decimal, or hexadecimal after 0x; of its bits
the box looks at those that choose the first button: 0 Yes, 0x100 No, 0x200 Yes To All, 0x300 Cancel. Without a title
the box has the product's name. With --language the captions come from K4TBackProcess.txt in FOLDER; the language that
the modules share stays as it is. What fails before the box is answered prints nothing but a message on standard error.
A PROMPT that begins with '--' stands behind a '--' of its own.

Example:
  backproc msgbox --flags 0x100 --title Orvane "Overwrite?\nR1 is in the library already."
)";

int RunMsgbox(const Arguments& arguments, Console& console) {
    const MessageArguments message = ReadMessageArguments(arguments);
    PrepareMessages(message.languageFolder);
    const std::int32_t code = services::ShowMessage(message.prompt, message.flags | services::kSuiteBox, message.title);
    console.out << code << '\n';
    return code;
}

}  // namespace

const Verb kMsgboxVerb = {"msgbox", "Shows the suite's message box and its answer", kHelp, RunMsgbox};

}  // namespace tools
