// Handles a form's keys by the rules in FormKeys.h.
#include "runtime/FormKeys.h"

#include <algorithm>

#include "runtime/Form.h"
#include "runtime/Ports.h"

namespace runtime {
namespace {

KeyAction ActionOf(std::int16_t keyCode, std::int16_t shift, const Control* focused) {
    const bool isInBlock = focused && focused->Kind() == ControlKind::kTextBlock;
    if (keyCode == kKeyTab && shift == kCtrl && isInBlock) return KeyAction::kWriteTab;
    if ((shift & (kCtrl | kAlt)) != 0) return KeyAction::kNone;
    constexpr auto kRules = KeyRules();
    const auto rule = std::find_if(kRules.begin(), kRules.end(), [&](const KeyRule& r) { return r.key == keyCode; });
    if (rule == kRules.end()) return KeyAction::kNone;
    if (focused && focused->Kind() == ControlKind::kButton) return rule->onButton;
    return focused && focused->HasOpenList() ? rule->onOpenList : rule->elsewhere;
}

}  // namespace

bool Form::KeyDown(std::int16_t keyCode, std::int16_t shift, bool isRepeated) {
    const bool wasVisible = visible_;
    OnKeyDown(keyCode, shift);
    const bool isGone = !window_ || (wasVisible && !visible_);
    return keyCode == 0 || isGone || ActOnKey(keyCode, shift, isRepeated);
}

bool Form::ActOnKey(std::int16_t keyCode, std::int16_t shift, bool isRepeated) {
    Control* const focused = tabs_.Focused();
    switch (ActionOf(keyCode, shift, focused)) {
        case KeyAction::kNone:
            return false;
        case KeyAction::kWalk:
            tabs_.Walk((shift & kShift) != 0 ? -1 : 1);
            return true;
        case KeyAction::kWalkOn:
            tabs_.Walk(1);
            return true;
        case KeyAction::kWalkBack:
            tabs_.Walk(-1);
            return true;
        case KeyAction::kWalkLeft:
            tabs_.Walk(isRightToLeft_ ? 1 : -1);
            return true;
        case KeyAction::kWalkRight:
            tabs_.Walk(isRightToLeft_ ? -1 : 1);
            return true;
        case KeyAction::kPress:
            return isRepeated || Press(*focused);
        case KeyAction::kPressCancel:
            return PressCancel(isRepeated);
        case KeyAction::kWriteTab:
            if (!KeyPress(u'\t')) focused->Write(u"\t");
            return true;
        case KeyAction::kCloseList:
            focused->CloseList(false);
            return true;
        case KeyAction::kChooseItem:
            // Close the list before the character arrives, because the character's handlers must get the new selection.
            focused->CloseList(true);
            [[fallthrough]];
        case KeyAction::kWrite:
            if (!isRepeated) enterPressedHere_ = true;
            return isRepeated && !AcceptsRepeatedEnter(focused);
    }
    return false;
}

bool Form::Press(Control& button) {
    tabs_.Focus(button);
    // A handler of the focus change may have unloaded the form.
    if (window_) OnClick(button);
    return true;
}

bool Form::PressCancel(bool isRepeated) {
    const auto cancel = std::find_if(controls_.begin(), controls_.end(), [](const auto& control) {
        return control->IsCancel() && control->Kind() == ControlKind::kButton;
    });
    const bool canBePressed = cancel != controls_.end() && (*cancel)->Visible();
    return canBePressed && (isRepeated || Press(**cancel));
}

bool Form::AcceptsRepeatedEnter(const Control* focused) const {
    return !focused || (enterPressedHere_ && focused->Kind() == ControlKind::kTextBlock);
}

bool Form::KeyUp(std::int16_t keyCode, std::int16_t shift) {
    OnKeyUp(keyCode, shift);
    return keyCode == 0 || !window_;
}

bool Form::KeyPress(char16_t character) {
    OnKeyPress(character);
    if (character == 0 || !window_) return true;
    if (Control* const focused = tabs_.Focused()) OnControlKeyPress(*focused, character);
    return character == 0 || !window_;
}

bool Form::AccessKey(char16_t character) {
    if (!window_) return false;
    const char16_t wanted = CurrentPorts().locale.LowerCase(StringView(&character, 1)).front();
    const std::vector<Control*> marked = tabs_.WithAccessKey(wanted);
    if (marked.empty()) return false;
    if (marked.size() == 1) return Press(*marked.front());
    tabs_.FocusNextOf(marked);
    return true;
}

}  // namespace runtime
