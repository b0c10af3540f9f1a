// `backproc text`: a text of the user's language.
#include <ostream>

#include "services/MessageTexts.h"
#include "tools/ClientView.h"
#include "tools/Display.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc text ID [DEFAULT]

Shows the text that the current language has under ID, else DEFAULT; without a DEFAULT it fails when there is no such
text. The language is the one whose folder is in the shared string LANGUAGEPATH; its texts stand there in
K4TBackProcess.txt. A control character inside the text is shown by its picture.

  ID       identifier of a text, as 'backproc texts' lists them
  DEFAULT  any text; may be empty: ""

Exit code: 0 done, 1 there is no such text, or a failure, 2 bad usage.

Example:
  backproc text 39171 "&Yes"
)";

/// A text that is there does not depend on the default.
bool HasText(StringView id) {
    return services::GetLocalText(u"0", id) == services::GetLocalText(u"1", id);
}

int RunText(const Arguments& arguments, Console& console) {
    if (arguments.empty()) throw Missing("ID");
    AtMost(2, arguments);
    SayWhichComponent("text", ComposeAsClient("text", console.err), console.err);
    const String& id = arguments[0];
    const bool hasDefault = arguments.size() == 2;
    if (!hasDefault && !HasText(id))
        throw std::runtime_error("there is no text " + Quoted(id) +
                                 " in the current language; give a DEFAULT, or see 'backproc texts'");
    console.out << Display(services::GetLocalText(hasDefault ? arguments[1] : String(), id)) << '\n';
    return kSuccess;
}

}  // namespace

const Verb kTextVerb = {"text", "Shows a text of the current language", kHelp, RunText};

}  // namespace tools
