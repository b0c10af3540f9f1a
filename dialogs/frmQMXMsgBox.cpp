#include "dialogs/frmQMXMsgBox.h"

#include <algorithm>

#include "runtime/Error.h"
#include "runtime/Numbers.h"
#include "runtime/Ports.h"
#include "runtime/Screen.h"
#include "services/Localisation.h"

namespace dialogs {
namespace {

using runtime::Control;
using runtime::ControlDesign;
using runtime::ControlKind;
using runtime::Twips;

constexpr std::int32_t kDefaultButtonBits = 0x300;
constexpr int kCancelIndex = 3;

runtime::FormDesign BoxDesign() {
    return {
        .name = u"frmQMXMsgBox",
        .inner = {5085, 1425},
        .border = runtime::BorderStyle::kFixedDialog,
    };
}

ControlDesign ImageDesign() {
    return {
        .kind = ControlKind::kPicture,
        .name = u"Image1",
        .bounds = {180, 180, 480, 480},
        .text = u"?",  // the name for screen readers, in every language
        .picture = u"QUESTION",
    };
}

ControlDesign BoxPromptDesign() {
    return {
        .kind = ControlKind::kLabel,
        .name = u"lblPrompt",
        .bounds = {945, 240, 3700, 390},
        .text = u"########################################",
        .tabIndex = 4,
        .sizesItself = true,
    };
}

}  // namespace

frmQMXMsgBox::frmQMXMsgBox() : PromptForm(BoxDesign()) {
    AddControl(ImageDesign());
    lblPrompt_ = &AddControl(BoxPromptDesign());
    cmdBut_[0] = &AddButton(0, 180, u"&Yes", u"39171");
    cmdBut_[1] = &AddButton(1, 1395, u"&No", u"39172");
    cmdBut_[2] = &AddButton(2, 2610, u"Yes &To All", u"39173");
    cmdBut_[3] = &AddButton(3, 3825, u"Cancel", u"99388");
}

Control& frmQMXMsgBox::AddButton(int index, Twips left, StringView caption, StringView tag) {
    return AddControl({
        .kind = ControlKind::kButton,
        .name = u"cmdBut",
        .index = index,
        .bounds = {left, 915, 1125, 345},
        .text = String(caption),
        .tag = String(tag),
        .tabIndex = index,
        .isCancel = index == kCancelIndex,
    });
}

std::int32_t frmQMXMsgBox::ShowMe(StringView prompt, std::int32_t flags, StringView title) {
    const PromptSession session(*this);
    Load();
    const runtime::Rect design = lblPrompt_->Bounds();
    const std::int32_t origW = runtime::ToInt32(design.width);
    const std::int32_t origH = runtime::ToInt32(design.height);
    const auto pointer = runtime::DefaultPointerForScope();
    lblPrompt_->SetText(prompt);
    SetAccessibleDescription(prompt);
    SetCaption(title);
    ChooseFirstButton(flags);
    LayOut(origW, origH);
    result_ = kCancel;
    runtime::CurrentPorts().windows.PlayQuestionSound();
    ShowModal();
    return result_;
}

// Sets the tab positions in ascending order, because each call moves the following buttons.
void frmQMXMsgBox::ChooseFirstButton(std::int32_t flags) {
    const int first = (flags & kDefaultButtonBits) >> 8;
    if (first == 0) return;
    for (int i = first; i < static_cast<int>(kButtons); ++i)
        cmdBut_[static_cast<std::size_t>(i)]->SetTabIndex(i - first);
}

void frmQMXMsgBox::LayOut(std::int32_t origW, std::int32_t origH) {
    runtime::Rect label = lblPrompt_->Bounds();
    label.height = std::max(label.height, static_cast<Twips>(origH));
    label.width = std::max(label.width, static_cast<Twips>(origW));
    lblPrompt_->SetBounds(label);
    const std::int32_t dW = runtime::ToInt32(label.width - static_cast<Twips>(origW));
    const std::int32_t dH = runtime::ToInt32(label.height - static_cast<Twips>(origH));
    SetHeight(Height() + static_cast<Twips>(dH));
    SetWidth(Width() + static_cast<Twips>(dW));
    for (Control* button : cmdBut_) {
        runtime::Rect bounds = button->Bounds();
        bounds.left += static_cast<Twips>(dW) / 2.0F;
        bounds.top += static_cast<Twips>(dH);
        button->SetBounds(bounds);
    }
    const runtime::Size screen = runtime::ScreenSize();
    Move((screen.width - Width()) / 2.0F, (screen.height - Height()) / 2.0F);
}

void frmQMXMsgBox::OnLoad() {
    services::LocaliseForm(*this);
    // Restore the label's design size, because prompts are measured against it. The new font has changed the size.
    lblPrompt_->SetBounds(BoxPromptDesign().bounds);
}

void frmQMXMsgBox::OnClick(Control& control) {
    const int index = control.Index();
    if (index >= 0 && index < kCancelIndex) result_ = index + kYes;
    if (index == kCancelIndex) result_ = kCancel;
    Hide();
}

String frmQMXMsgBox::TextToCopy() {
    const String line = String(27, u'-') + u"\r\n";
    String buttons;
    for (Control* button : cmdBut_) buttons += runtime::WithoutMarks(button->Text()) + u"   ";
    return line + Caption() + u"\r\n" + line + lblPrompt_->Text() + u"\r\n" + line + buttons + u"\r\n" + line;
}

void frmQMXMsgBox::OnKeyDown(std::int16_t& keyCode, std::int16_t shift) {
    if (keyCode != runtime::kKeyC || shift != runtime::kCtrl) return;
    runtime::CurrentPorts().windows.CopyToClipboard(TextToCopy());
    keyCode = 0;
}

// Sends the character again together with Alt, so that a plain letter presses the button with that access key.
void frmQMXMsgBox::OnKeyPress(char16_t& character) {
    runtime::IgnoreErrors([character] { runtime::CurrentPorts().windows.SendAltKey(character); });
}

std::int32_t AskWithSuiteBox(StringView prompt, std::int32_t flags, StringView title) {
    return AskWithShared<frmQMXMsgBox>([&](frmQMXMsgBox& box) { return box.ShowMe(prompt, flags, title); });
}

}  // namespace dialogs
