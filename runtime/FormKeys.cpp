// What a form does by itself with keys: its tab order, where the focus is, and which keys walk or press.
#include <algorithm>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/Ports.h"

namespace runtime {

void Form::ResetTabOrder() {
    tabOrder_.clear();
    for (const auto& control : controls_) {
        if (control->design_.tabIndex != ControlDesign::kNoIndex) tabOrder_.push_back(control.get());
    }
    std::stable_sort(tabOrder_.begin(), tabOrder_.end(),
                     [](const Control* a, const Control* b) { return a->design_.tabIndex < b->design_.tabIndex; });
}

int Form::PlaceInTabOrder(const Control& control) const {
    const auto found = std::find(tabOrder_.begin(), tabOrder_.end(), &control);
    if (found == tabOrder_.end()) throw ErrorAbout(kPropertyNotSupported, control.Name());
    return static_cast<int>(found - tabOrder_.begin());
}

void Form::MoveInTabOrder(Control& control, int place) {
    tabOrder_.erase(tabOrder_.begin() + PlaceInTabOrder(control));
    const int last = static_cast<int>(tabOrder_.size());
    tabOrder_.insert(tabOrder_.begin() + std::min(place, last), &control);
}

/// The controls that Tab walks, in tab order: those with their tab stop on, or all that can take the focus when no
/// control has it on. Localising a form turns every tab stop off, and its dialog must still be usable by keyboard.
std::vector<Control*> Form::Reachable() const {
    std::vector<Control*> all;
    std::vector<Control*> stops;
    for (Control* control : tabOrder_) {
        if (!control->TakesFocus() || !control->visible_) continue;
        all.push_back(control);
        if (control->tabStop_) stops.push_back(control);
    }
    return stops.empty() ? all : stops;
}

void Form::WalkFocus(int step) {
    const std::vector<Control*> reachable = Reachable();
    if (reachable.empty()) return;
    const int count = static_cast<int>(reachable.size());
    const auto found = std::find(reachable.begin(), reachable.end(), focused_);
    int next = step > 0 ? 0 : count - 1;
    if (found != reachable.end()) next = (static_cast<int>(found - reachable.begin()) + step + count) % count;
    SetFocus(*reachable[static_cast<std::size_t>(next)]);
}

Control* Form::FocusedControl() {
    EnsureLoaded();
    return focused_;
}

void Form::SetFocus(Control& control) {
    EnsureLoaded();
    if (!control.TakesFocus()) throw ErrorAbout(kPropertyNotSupported, control.Name());
    if (!control.visible_) {
        throw ErrorAbout(kInvalidProcedureCall, control.Name() + u" is hidden and cannot take the focus");
    }
    focused_ = &control;
    control.native_->SetFocus();
}

void Form::LoseFocus(Control& control) {
    if (focused_ != &control) return;
    focused_ = nullptr;
    // A form that is not shown chooses when it is.
    if (visible_) WalkFocus(1);
}

bool Form::Press(Control* button) {
    if (!button || button->Kind() != ControlKind::kButton || !button->visible_) return false;
    SetFocus(*button);
    // What lost the focus may have unloaded the form.
    if (window_) OnClick(*button);
    return true;
}

bool Form::PressCancel(bool isRepeated) {
    const auto cancel =
        std::find_if(controls_.begin(), controls_.end(), [](const auto& control) { return control->IsCancel(); });
    const bool canBePressed = cancel != controls_.end() && (*cancel)->visible_;
    return canBePressed && (isRepeated || Press(cancel->get()));
}

// A held Enter may have been meant for another form. One that has gone down here writes lines as long as it is held.
bool Form::AcceptsRepeatedEnter() const {
    return !focused_ || (enterPressedHere_ && focused_->Kind() == ControlKind::kTextBlock);
}

bool Form::Navigate(std::int16_t keyCode, std::int16_t shift, bool isRepeated) {
    if ((shift & (kCtrl | kAlt)) != 0) return false;
    const bool onButton = focused_ && focused_->Kind() == ControlKind::kButton;
    const bool onOpenList = focused_ && focused_->HasOpenList();
    switch (keyCode) {
        case kKeyTab:
            WalkFocus((shift & kShift) != 0 ? -1 : 1);
            return true;
        case kKeyEnter:
            // Here and not by the character: its handlers must find the item chosen.
            if (onOpenList) focused_->CloseList(true);
            if (onButton) return isRepeated || Press(focused_);
            if (!isRepeated) enterPressedHere_ = true;
            return isRepeated && !AcceptsRepeatedEnter();
        case kKeySpace:
            return onButton && (isRepeated || Press(focused_));
        case kKeyEscape:
            if (onOpenList) focused_->CloseList(false);
            return onOpenList || PressCancel(isRepeated);
        case kKeyLeft:
        case kKeyUp:
            if (onButton) WalkFocus(-1);
            return onButton;
        case kKeyRight:
        case kKeyDown:
            if (onButton) WalkFocus(1);
            return onButton;
        default:
            return false;
    }
}

bool Form::KeyDown(std::int16_t keyCode, std::int16_t shift, bool isRepeated) {
    const bool wasVisible = visible_;
    OnKeyDown(keyCode, shift);
    const bool isGone = !window_ || (wasVisible && !visible_);
    return keyCode == 0 || isGone || Navigate(keyCode, shift, isRepeated);
}

bool Form::KeyUp(std::int16_t keyCode, std::int16_t shift) {
    OnKeyUp(keyCode, shift);
    return keyCode == 0 || !window_;
}

bool Form::KeyPress(char16_t character) {
    OnKeyPress(character);
    if (character != 0 && window_ && focused_) OnControlKeyPress(*focused_, character);
    return character == 0 || !window_;
}

bool Form::AccessKey(char16_t character) {
    const char16_t wanted = CurrentPorts().locale.LowerCase(StringView(&character, 1)).front();
    const auto end = tabOrder_.end();
    const auto isMarked = [wanted](Control* control) { return control->visible_ && control->AccessKey() == wanted; };
    const auto first = std::find_if(tabOrder_.begin(), end, isMarked);
    if (wanted == 0 || first == end) return false;
    const bool isOnlyOne = std::none_of(first + 1, end, isMarked);
    if (isOnlyOne) return Press(*first);
    const auto focused = std::find(tabOrder_.begin(), end, focused_);
    const auto next = focused == end ? end : std::find_if(focused + 1, end, isMarked);
    SetFocus(next == end ? **first : **next);
    return true;
}

void Form::Clicked(std::size_t control) {
    OnClick(*controls_.at(control));
}

void Form::Focused(std::size_t control) {
    Control& got = *controls_.at(control);
    if (got.TakesFocus()) focused_ = &got;
}

void Form::Edited(std::size_t control) {
    controls_.at(control)->OnEdited();
}

void Form::Chosen(std::size_t control, int item) {
    controls_.at(control)->OnChosen(item);
}

}  // namespace runtime
