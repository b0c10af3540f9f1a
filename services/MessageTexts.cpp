#include "services/MessageTexts.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "kernel_api/Reader.h"
#include "runtime/Error.h"
#include "runtime/Ports.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"

namespace services {
namespace {

struct TextReference {
    StringView id;
    StringView defaultText;
};

/// The texts before and after the detail; most errors have none after it.
struct ErrorText {
    std::int32_t number;
    TextReference before;
    TextReference after = {};
};

constexpr ErrorText kErrorTexts[] = {
    {1, {u"99352", u"Can't load project: "}},
    {2, {u"99374", u"Can't save project"}},
    {3, {u"1097", u"Can't create net hook "}},
    {4, {u"1099", u"Can't find project file: "}},
    {21, {u"991089", u"Range Error: "}},
    {22, {u"10294", u"Can't load local vector font, default assumed."}},
    {23, {u"10320", u"Can't exceed 25 characters."}},
    {24, {u"10321", u"Password can't exceed 8 characters."}},
    {101, {u"99561", u"Part/Symbol: "}, {u"99196", u" already exists"}},
};

SuiteMessageBox suiteMessageBox;

String Localised(const TextReference& text) {
    return text.id.empty() ? String() : GetLocalText(text.defaultText, text.id);
}

/// None for a number that the table does not have.
std::optional<String> ErrorPrompt(std::int32_t number, const String& detail) {
    const auto* const error = std::ranges::find(kErrorTexts, number, &ErrorText::number);
    if (error == std::end(kErrorTexts)) return std::nullopt;
    const String before = Localised(error->before);
    return before + detail + Localised(error->after);
}

/// The module is called after the product, so that the product's name normally shows twice.
String ErrorTitle() {
    return GetProductName() + u" - " + processValues.moduleName + u" (" + processValues.moduleCaption + u")";
}

}  // namespace

String GetLocalText(StringView defaultText, StringView textId) {
    return kernel_api::CurrentReader().GetText(defaultText, textId);
}

void ShowError(std::int32_t& errorNumber, StringView detail) {
    // Looking up texts calls the suite's objects, and `detail` may lie in something that they change.
    const std::optional<String> prompt = ErrorPrompt(errorNumber, String(detail));
    const std::int32_t style = prompt ? kExclamation : 0;
    ShowMessage(prompt.value_or(String()), style | kSystemModal, ErrorTitle());
}

std::int32_t ShowMessage(StringView prompt, std::int32_t flags, const std::optional<String>& title,
                         const MessageHelp& help) {
    const String shownTitle = title ? *title : GetProductName();
    if ((flags & kSuiteBox) == 0) return runtime::CurrentPorts().messageBox.Show(prompt, flags, shownTitle, help);
    if (!suiteMessageBox) throw runtime::Error(runtime::kObjectVariableNotSet);
    // A copy: while the box is open, the one connected may be taken back.
    const SuiteMessageBox box = suiteMessageBox;
    return box(prompt, flags, shownTitle);
}

void UseSuiteMessageBox(SuiteMessageBox box) {
    suiteMessageBox = std::move(box);
}

}  // namespace services
