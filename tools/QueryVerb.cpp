// Implements `backproc query`. The verb shows the suite's query dialog.
#include <ostream>

#include "dialogs/Qmxquery.h"
#include "services/modReg.h"
#include "tools/DialogDeadline.h"
#include "tools/Display.h"
#include "tools/MessageService.h"
#include "tools/QueryArguments.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr int kAccepted = 0;
constexpr int kCancelled = 1;
constexpr int kExtraButton = 3;

constexpr std::string_view kHelp =
    R"(Usage: backproc query --kind K [--title T] [--prompt P] [--index I] [--button CAPTION] [--language FOLDER]
                      [--timeout SECONDS [--default TEXT]] [--] VALUE0 [ITEM...]

Shows the suite's query dialog and prints the answer: its text, with control characters made visible, and its index. The
index is that of the chosen ITEM, counted from 1, or 0 without a chosen ITEM, -1 if the dialog was cancelled, and -100
for the extra button. In all texts except FOLDER, '\n' is a line break.

  --kind K           1 a line of text, 2 an editable combo box, 3 a drop-down list, 4 a block of text, 5 a list box;
                     any other 32-bit number is 1
  --title T          the dialog's title; by default, the product's name
  --prompt P         the question
  --index I          for 3 and 5: the item that is selected first, from 0; -1 for none
  --button CAPTION   adds an extra button
  --language FOLDER  reads the captions from K4TBackProcess.txt in FOLDER; the language of the modules does not change
  --timeout SECONDS  closes the dialog if it is not answered within 1 to 86400 seconds
  --default TEXT     the answer after the timeout (for 3 and 5, one of the items); by default, Cancel's answer
  --                 ends the options, for a VALUE0 that begins with '--'
  VALUE0             the initial text of 1, 2 and 4; may be empty: ""
  ITEM...            the items of 2, 3 and 5

Exit code: 0 accepted, 1 cancelled, 3 the extra button, 66 not answered within the timeout. 64 bad usage, 65 failed;
these two print only a message on standard error.

Example:
  backproc query --kind 3 --prompt "Which side?" --index 0 "" Top Bottom
)";

int ExitCodeFor(std::int32_t index) {
    if (index == dialogs::Qmxquery::kCancelled) return kCancelled;
    return index == dialogs::Qmxquery::kExtraButton ? kExtraButton : kAccepted;
}

void Print(Console& console, const String& text, std::int32_t index) {
    console.out << "text=" << Display(text) << "\nindex=" << index << '\n' << std::flush;
}

int RunQuery(const Arguments& arguments, Console& console) {
    QueryArguments query = ReadQueryArguments(arguments);
    const auto printDefault = [&] { Print(console, query.defaultText.value_or(u""), query.defaultIndex); };
    DialogDeadline deadline(query.timeout, printDefault);
    PrepareMessages(query.languageFolder);
    const String title = query.title ? *query.title : services::GetProductName();
    const String text = dialogs::AskQuery(title, query.prompt, query.values, query.kind, query.index,
                                          query.buttonCaption.has_value(), query.buttonCaption.value_or(u""));
    if (deadline.Stop()) {
        printDefault();
        return kDialogTimedOut;
    }
    Print(console, text, query.index);
    return ExitCodeFor(query.index);
}

}  // namespace

const Verb kQueryVerb = {
    "query", "Shows the suite's query dialog and prints the answer", kHelp, RunQuery, kDialogFailure, kDialogBadUsage};

}  // namespace tools
