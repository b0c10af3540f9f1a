#include "dialogs/Qmxquery.h"

#include <span>

#include "kernel_api/Splitter.h"
#include "runtime/Error.h"
#include "runtime/Screen.h"
#include "services/Localisation.h"
#include "services/QMXHLP.h"
#include "services/WindowOrder.h"

namespace dialogs {
namespace {

using runtime::Control;
using runtime::ControlDesign;
using runtime::ControlKind;
using runtime::Rect;
using runtime::Twips;

constexpr char16_t kEnter = 13;
constexpr std::int16_t kKeyF1 = 112;
constexpr StringView kLineBreak = u"\r\n";
constexpr StringView kExtraButtonText = u"\x01";

/// All input controls have the same place. Only one input control is visible.
constexpr Rect InputSpot(Twips height) {
    return {60, 1170, 5475, height};
}

runtime::FormDesign DialogDesign() {
    return {
        .name = u"Qmxquery",
        .inner = {5595, 2415},
        .border = runtime::BorderStyle::kFixedDialog,
    };
}

ControlDesign PromptDesign() {
    return {
        .kind = ControlKind::kLabel,
        .name = u"lblPrompt",
        .bounds = {60, 60, 4155, 1065},
        .tabIndex = 3,
    };
}

/// Describes one of the two buttons beside the prompt.
ControlDesign AnswerDesign(StringView name, Twips top, StringView caption, StringView tag, int tabIndex) {
    return {
        .kind = ControlKind::kButton,
        .name = String(name),
        .bounds = {4320, top, 1125, 345},
        .text = String(caption),
        .tag = String(tag),
        .tabIndex = tabIndex,
    };
}

ControlDesign AcceptDesign() {
    return AnswerDesign(u"cmdAccept", 210, u"Accept", u"99177", 4);
}

ControlDesign CancelDesign() {
    ControlDesign design = AnswerDesign(u"cmdCancel", 690, u"Cancel", u"99388 ", 5);
    design.isCancel = true;
    return design;
}

ControlDesign InputDesign(ControlKind kind, StringView name, Twips height, int tabIndex, StringView text = {}) {
    return {
        .kind = kind,
        .name = String(name),
        .bounds = InputSpot(height),
        .text = String(text),
        .tabIndex = tabIndex,
        .visible = false,
    };
}

ControlDesign ExtraButtonDesign() {
    return {
        .kind = ControlKind::kButton,
        .name = u"F_Button",
        .bounds = {120, 2040, 5415, 375},
        .tabIndex = 8,
        .visible = false,
    };
}

bool IsFixedList(std::int32_t kind) {
    return kind == kDropDown || kind == kList;
}

bool HasItems(std::int32_t kind) {
    return IsFixedList(kind) || kind == kCombo;
}

String& InitialText(std::vector<String>& values) {
    if (values.empty()) {
        throw runtime::ErrorAbout(runtime::kSubscriptOutOfRange,
                                  u"the list of values is empty; it needs at least the initial text");
    }
    return values.front();
}

}  // namespace

Qmxquery::Qmxquery() : PromptForm(DialogDesign()) {
    lblPrompt_ = &AddControl(PromptDesign());
    cmdAccept_ = &AddControl(AcceptDesign());
    cmdCancel_ = &AddControl(CancelDesign());
    txtText_ = &AddControl(InputDesign(ControlKind::kTextBox, u"txtText", 315, 0));
    cboDropdown_ = &AddControl(InputDesign(ControlKind::kDropDownList, u"cboDropdown", 315, 1));
    cboCombo_ = &AddControl(InputDesign(ControlKind::kCombo, u"cboCombo", 315, 2, u"Combo1"));
    txtTextBlock_ = &AddControl(InputDesign(ControlKind::kTextBlock, u"txtTextBlock", 765, 6));
    cboList_ = &AddControl(InputDesign(ControlKind::kListBox, u"cboList", 840, 7));
    F_Button_ = &AddControl(ExtraButtonDesign());
}

String Qmxquery::QUERY(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                       std::int32_t& index, bool showButton, const String& buttonCaption) {
    const PromptSession session(*this);
    Load();
    isAnswered_ = false;
    layoutHeight_ = LayOut(kind, prompt, showButton);
    SetCaption(title);
    kind_ = kind;
    resultText_.clear();
    InitialText(values) = runtime::RTrim(InitialText(values));
    Fill(values, index);
    lblPrompt_->SetText(prompt);
    SetAccessibleDescription(prompt);
    InputFor(kind_).SetAccessibleName(prompt);
    if (showButton) F_Button_->SetText(buttonCaption);
    SetForm(*this);
    Wait();
    InitialText(values) = resultText_;
    index = resultIndex_;
    return resultText_;
}

std::int32_t Qmxquery::LayOut(std::int32_t kind, StringView prompt, bool showButton) {
    const QueryMeasures measures{
        .kind = kind,
        .labelWidth = lblPrompt_->Bounds().width,
        .promptWidth = TextSize(prompt).width,
        .promptPieces = kernel_api::CurrentSplitter().CountPieces(prompt, kLineBreak),
        .lineHeight = TextSize(u"R").height,
        .inputHeight = MeasuredInputFor(kind).Bounds().height,
        .buttonHeight = F_Button_->Bounds().height,
        .showsButton = showButton,
        .screenHeight = runtime::ScreenSize().height,
    };
    const std::int32_t height = QueryFormHeight(measures);
    SetHeight(static_cast<Twips>(height));
    const QueryPlaces places = PlacesInQuery(InnerSize().height, measures);
    if (showButton) {
        F_Button_->SetTop(places.buttonTop);
        F_Button_->SetVisible(true);
    }
    lblPrompt_->SetHeight(places.labelHeight);
    InputFor(kind).SetTop(places.inputTop);
    return height;
}

Control& Qmxquery::InputFor(std::int32_t kind) const {
    switch (kind) {
        case kCombo:
            return *cboCombo_;
        case kDropDown:
            return *cboDropdown_;
        case kTextBlock:
            return *txtTextBlock_;
        case kList:
            return *cboList_;
        default:
            return *txtText_;
    }
}

Control& Qmxquery::MeasuredInputFor(std::int32_t kind) const {
    return kind == kCombo || kind == kDropDown ? *txtText_ : InputFor(kind);
}

void Qmxquery::Fill(const std::vector<String>& values, std::int32_t index) {
    Control& input = InputFor(kind_);
    if (HasItems(kind_)) {
        input.ClearItems();
        input.AddItems(std::span(values).subspan(1));
    }
    if (IsFixedList(kind_)) {
        input.SetListIndex(index);
    } else {
        input.SetText(values.front());
        input.SetSelStart(0);
        input.SetSelLength(static_cast<std::int32_t>(values.front().size()));
    }
    input.SetVisible(true);
}

void Qmxquery::Wait() {
    const auto pointer = runtime::DefaultPointerForScope();
    ShowModal();
    if (!isAnswered_) Finish({}, kCancelled);
}

void Qmxquery::Accept() {
    // The form and then the combo box receive the same Enter.
    if (isAnswered_) return;
    Control& input = InputFor(kind_);
    const String text = input.Text();
    const std::int32_t index = IsFixedList(kind_) ? input.ListIndex() + 1 : kNothingChosen;
    input.SetVisible(false);
    if (HasItems(kind_)) input.ClearItems();
    Finish(text, index);
}

void Qmxquery::Finish(StringView text, std::int32_t index) {
    resultText_ = text;
    resultIndex_ = index;
    isAnswered_ = true;
    Unload();
}

void Qmxquery::OnLoad() {
    services::LocaliseForm(*this);
}

void Qmxquery::OnActivate() {
    services::SetWindowTopMost(*this, true);
}

void Qmxquery::OnClick(Control& control) {
    if (&control == cmdAccept_) Accept();
    if (&control == cmdCancel_) Finish({}, kCancelled);
    if (&control == F_Button_) Finish(kExtraButtonText, kExtraButton);
}

void Qmxquery::OnKeyPress(char16_t& character) {
    if (kind_ != kTextBlock && character == kEnter) Accept();
}

void Qmxquery::OnControlKeyPress(Control& control, char16_t& character) {
    if (&control == cboCombo_ && character == kEnter) Accept();
}

void Qmxquery::OnKeyUp(std::int16_t& keyCode, std::int16_t shift) {
    if (keyCode == kKeyF1 && shift == runtime::kCtrl) services::ShowHelpContents();
}

String AskQuery(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                std::int32_t& index, bool showButton, const String& buttonCaption) {
    // Copy the function, because it may be replaced while the dialog is open.
    const services::SuiteQuery ask = services::Values().suiteQuery;
    return ask(title, prompt, values, kind, index, showButton, buttonCaption);
}

String AskWithQueryDialog(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                          std::int32_t& index, bool showButton, const String& buttonCaption) {
    return AskWithShared<Qmxquery>(
        [&](Qmxquery& dialog) { return dialog.QUERY(title, prompt, values, kind, index, showButton, buttonCaption); });
}

}  // namespace dialogs
