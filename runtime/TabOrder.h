// The tab order of a form's controls, and which of them has the focus. Each form owns one; it refers to the form's
// controls and is used on the form's thread only.
//
// The user moves the focus with the mouse, and a screen reader may move it. The window system is therefore asked where
// it is. The answer is kept for the time in which the form is not active.
#pragma once

#include <memory>
#include <vector>

namespace runtime {

class Control;

class TabOrder {
 public:
    /// `controls` are those of the form; they outlive this.
    explicit TabOrder(const std::vector<std::unique_ptr<Control>>& controls) : controls_(controls) {}
    TabOrder(const TabOrder&) = delete;
    TabOrder& operator=(const TabOrder&) = delete;

    /// The form is loaded: the order is that of the design, and no control has the focus.
    void Reset();
    /// The form has no window: no control has a place or the focus.
    void Clear();
    /// Moves `control` to `place`, from 0; the others move along. A place behind the last one is the last one. Error
    /// 438 for a control that has no place.
    void Move(Control& control, int place);

    /// The control that has the focus, or gets it when the form becomes active; null when there is none.
    Control* Focused();
    /// Notes where the focus is: it is about to leave the form, which gets it back later.
    void NoteFocus() { Focused(); }
    /// Error 438 for a control that never takes the focus, 5 for a hidden one.
    void Focus(Control& control);
    /// Gives the focus again to the control that has it: the form's window has got the keyboard.
    void FocusAgain();
    /// True when `control` had the focus; then no control has it.
    bool TakeFocusFrom(const Control& control);
    /// Moves the focus by `step` controls, 1 or -1, among those that Tab reaches. Without a focus it moves to the first
    /// or the last of them.
    void Walk(int step);

    /// The visible controls whose access key is `character`, in tab order.
    std::vector<Control*> WithAccessKey(char16_t character) const;
    /// Moves the focus to the next of `controls`, which are in tab order; from the last one to the first.
    void FocusNextOf(const std::vector<Control*>& controls);

 private:
    std::vector<Control*> Reachable() const;

    const std::vector<std::unique_ptr<Control>>& controls_;
    std::vector<Control*> order_;
    Control* focused_ = nullptr;
};

}  // namespace runtime
