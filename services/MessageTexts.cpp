#include "services/MessageTexts.h"

#include "kernel_api/Reader.h"
#include "runtime/Error.h"
#include "runtime/Operation.h"
#include "runtime/Ports.h"
#include "services/LocalTexts.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"

namespace services {
namespace {

String TextIfAny(const LocalText& text) {
    return text.id.empty() ? String() : GetLocalText(text);
}

std::optional<String> ErrorPrompt(std::int32_t number, const String& detail) {
    const runtime::Operation operation;
    const ErrorText* const error = FindErrorText(number);
    if (!error) return std::nullopt;
    const String before = TextIfAny(error->before);
    return before + detail + TextIfAny(error->after);
}

/// Returns the title of error reports. `moduleName` is normally the product's name, so the title contains that name
/// twice.
String ErrorTitle() {
    return GetProductName() + u" - " + Values().moduleName + u" (" + Values().moduleCaption + u")";
}

}  // namespace

String GetLocalText(StringView defaultText, StringView textId) {
    return kernel_api::CurrentReader().GetText(defaultText, textId);
}

bool IsRightToLeft() {
    return GetLocalText(kDirection) == kRightToLeft;
}

void ShowError(std::int32_t& errorNumber, StringView detail) {
    // Copy `detail`, because the lookup of texts calls other objects, which may change the text that `detail` refers
    // to.
    const std::optional<String> prompt = ErrorPrompt(errorNumber, String(detail));
    const std::int32_t style = prompt ? kExclamation : 0;
    ShowMessage(prompt.value_or(String()), style | kSystemModal, ErrorTitle());
}

std::int32_t ShowMessage(StringView prompt, std::int32_t flags, const std::optional<String>& title,
                         const MessageHelp& help) {
    const String shownTitle = title ? *title : GetProductName();
    if ((flags & kSuiteBox) == 0) return runtime::CurrentPorts().messageBox.Show(prompt, flags, shownTitle, help);
    // Copy the function, because other code may replace it while the box is open.
    const SuiteMessageBox box = Values().suiteMessageBox;
    if (!box) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, u"the suite's message box");
    return box(prompt, flags, shownTitle);
}

}  // namespace services
