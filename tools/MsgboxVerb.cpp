// Implements `backproc msgbox`. The verb shows the suite's message box.
#include <ostream>

#include "dialogs/frmQMXMsgBox.h"
#include "services/MessageTexts.h"
#include "tools/DialogDeadline.h"
#include "tools/MessageArguments.h"
#include "tools/MessageService.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc msgbox [--flags N] [--title T] [--language FOLDER]
                       [--timeout SECONDS [--default CODE]] [--] PROMPT

Shows the suite's message box, waits for the answer and prints the answer's code.

  --flags N          the button with the focus: 0 Yes, 0x100 No, 0x200 Yes To All, 0x300 Cancel; other bits of the
                     32-bit number are ignored. Decimal, or hexadecimal after 0x
  --title T          the box's title; by default, the product's name
  --language FOLDER  reads the captions from K4TBackProcess.txt in FOLDER; the language of the modules does not change
  --timeout SECONDS  closes the box if it is not answered within 1 to 86400 seconds
  --default CODE     the answer after the timeout: 6, 7, 8 or 2; by default, 2
  --                 ends the options, for a PROMPT that begins with '--'
  PROMPT             the message; '\n' in it is a line break

Exit code: the answer: 6 Yes, 7 No, 8 Yes To All, 2 Cancel or closed. 66 not answered within the timeout; 64 bad usage,
65 failed; these two print only a message on standard error.

Example:
  backproc msgbox --flags 0x100 --title Orvane "Overwrite?\nR1 is in the library already."
)";

int RunMsgbox(const Arguments& arguments, Console& console) {
    const MessageArguments message = ReadMessageArguments(arguments);
    const std::int32_t defaultAnswer = message.defaultAnswer.value_or(dialogs::frmQMXMsgBox::kCancel);
    const auto print = [&console](std::int32_t answer) { console.out << answer << '\n' << std::flush; };
    DialogDeadline deadline(message.timeout, [&] { print(defaultAnswer); });
    PrepareMessages(message.languageFolder);
    const std::int32_t code = services::ShowMessage(message.prompt, message.flags | services::kSuiteBox, message.title);
    const bool isTimedOut = deadline.Stop();
    print(isTimedOut ? defaultAnswer : code);
    return isTimedOut ? kDialogTimedOut : code;
}

}  // namespace

const Verb kMsgboxVerb = {
    "msgbox", "Shows the suite's message box and prints the answer", kHelp, RunMsgbox, kDialogFailure, kDialogBadUsage};

}  // namespace tools
