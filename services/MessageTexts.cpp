#include "services/MessageTexts.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "kernel_api/Reader.h"
#include "runtime/Error.h"
#include "runtime/Ports.h"
#include "services/LocalTexts.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"

namespace services {
namespace {

/// The texts before and after the detail; most errors have none after it.
struct ErrorText {
    std::int32_t number;
    LocalText before;
    LocalText after = {};
};

constexpr ErrorText kErrorTexts[] = {
    {1, {u"99352", u"Can't load project: ", u"error 1, before the detail"}},
    {2, {u"99374", u"Can't save project", u"error 2, before the detail"}},
    {3, {u"1097", u"Can't create net hook ", u"error 3, before the detail"}},
    {4, {u"1099", u"Can't find project file: ", u"error 4, before the detail"}},
    {21, {u"991089", u"Range Error: ", u"error 21, before the detail"}},
    {22, {u"10294", u"Can't load local vector font, default assumed.", u"error 22, before the detail"}},
    {23, {u"10320", u"Can't exceed 25 characters.", u"error 23, before the detail"}},
    {24, {u"10321", u"Password can't exceed 8 characters.", u"error 24, before the detail"}},
    {101,
     {u"99561", u"Part/Symbol: ", u"error 101, before the detail"},
     {u"99196", u" already exists", u"error 101, after the detail"}},
};

SuiteMessageBox suiteMessageBox;

String Localised(const LocalText& text) {
    return text.id.empty() ? String() : GetLocalText(text);
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

String GetLocalText(const LocalText& text) {
    return GetLocalText(text.defaultText, text.id);
}

std::vector<LocalText> CodeTexts() {
    std::vector<LocalText> texts = {kApplicationCaption, kModuleCaption, kFolderLead, kFolderNotAvailable};
    for (const ErrorText& error : kErrorTexts) {
        texts.push_back(error.before);
        if (!error.after.id.empty()) texts.push_back(error.after);
    }
    return texts;
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
