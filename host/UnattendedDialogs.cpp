#include "host/UnattendedDialogs.h"

#include <array>
#include <cstddef>

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "runtime/Error.h"
#include "services/ProcessValues.h"

namespace host {
namespace {

using dialogs::Qmxquery;
using runtime::String;
using runtime::StringView;

struct Answer {
    std::int32_t code;
    StringView name;
};

constexpr Answer kCancel{2, u"Cancel"};

/// The answer for each set of buttons. If the box has a Cancel button, the answer is Cancel. Otherwise, the answer is
/// OK, No or Abort.
constexpr std::array kSystemBoxAnswers = {
    Answer{1, u"OK"},     // OK
    kCancel,              // OK, Cancel
    Answer{3, u"Abort"},  // Abort, Retry, Ignore
    kCancel,              // Yes, No, Cancel
    Answer{7, u"No"},     // Yes, No
    kCancel,              // Retry, Cancel
    kCancel,              // Cancel, Try Again, Continue
};
constexpr std::int32_t kButtonBits = 0xF;

String OneLine(StringView text) {
    String line(text);
    for (char16_t& character : line) {
        if (character < u' ') character = u' ';
    }
    return line;
}

/// Throws the same errors as the query dialog for an empty list of values and for an invalid index.
void CheckQuestion(const std::vector<String>& values, std::int32_t kind, std::int32_t index) {
    if (values.empty()) {
        throw runtime::ErrorAbout(runtime::kSubscriptOutOfRange,
                                  u"the list of values is empty; it needs at least the initial text");
    }
    const bool hasSelection = kind == dialogs::kDropDown || kind == dialogs::kList;
    const auto items = static_cast<std::int32_t>(values.size() - 1);
    if (hasSelection && (index < -1 || index >= items)) {
        throw runtime::ErrorAbout(runtime::kInvalidPropertyValue, u"the index of the initially selected item");
    }
}

}  // namespace

void UnattendedDialogs::ReplaceSuiteDialogs() {
    services::ProcessValues& values = services::Values();
    values.suiteMessageBox = [this](StringView prompt, std::int32_t /*flags*/, StringView title) {
        return AnswerSuiteBox(prompt, title);
    };
    values.suiteQuery = [this](const String& title, const String& prompt, std::vector<String>& items, std::int32_t kind,
                               std::int32_t& index, bool /*showButton*/, const String& /*buttonCaption*/) {
        return AnswerQuery(title, prompt, items, kind, index);
    };
}

std::int32_t UnattendedDialogs::Show(StringView prompt, std::int32_t flags, StringView title,
                                     const runtime::MessageHelp& /*help*/) {
    const auto buttons = static_cast<std::size_t>(flags & kButtonBits);
    if (buttons >= kSystemBoxAnswers.size()) {
        throw runtime::ErrorAbout(runtime::kInvalidProcedureCall,
                                  u"the flags select a set of buttons that does not exist");
    }
    const Answer& answer = kSystemBoxAnswers[buttons];
    ReportAnswer(u"message", answer.name, title, prompt);
    return answer.code;
}

std::int32_t UnattendedDialogs::AnswerSuiteBox(StringView prompt, StringView title) const {
    ReportAnswer(u"message", kCancel.name, title, prompt);
    return dialogs::frmQMXMsgBox::kCancel;
}

String UnattendedDialogs::AnswerQuery(const String& title, const String& prompt, std::vector<String>& values,
                                      std::int32_t kind, std::int32_t& index) const {
    CheckQuestion(values, kind, index);
    ReportAnswer(u"question", kCancel.name, title, prompt);
    values.front().clear();
    index = Qmxquery::kCancelled;
    return {};
}

void UnattendedDialogs::ReportAnswer(StringView dialog, StringView answer, StringView title, StringView prompt) const {
    report_(u"K4TBackProcess: unattended, " + String(dialog) + u" answered with " + String(answer) + u": title=[" +
            OneLine(title) + u"] prompt=[" + OneLine(prompt) + u"]");
}

}  // namespace host
