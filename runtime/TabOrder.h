// The tab order of a form's controls, and the control that has the focus. Each form owns one. It refers to the form's
// controls and is used on the form's thread only.
//
// The window system reports which control has the focus, because the mouse and screen readers also move it. The last
// report is kept while the form is not active.
#pragma once

#include <memory>
#include <vector>

namespace runtime {

class Control;

class TabOrder {
 public:
    /// `controls` are the form's controls; they must outlive this object.
    explicit TabOrder(const std::vector<std::unique_ptr<Control>>& controls) : controls_(controls) {}
    TabOrder(const TabOrder&) = delete;
    TabOrder& operator=(const TabOrder&) = delete;

    /// Called when the form is loaded. Restores the order of the design. Afterwards no control has the focus.
    void Reset();
    /// Called when the form is unloaded. Empties the order. Afterwards no control has the focus.
    void Clear();
    /// Moves `control` to position `place`, counted from 0. A place beyond the last position means the last position.
    /// Error 438 for a control that is not in the tab order.
    void Move(Control& control, int place);

    /// The control that has the focus, or gets it when the form becomes active. Null if there is none.
    Control* Focused();
    /// Stores which control has the focus. Called before the form loses the focus, so that FocusAgain can restore it.
    void NoteFocus() { Focused(); }
    /// Gives `control` the focus. Error 438 for a kind that cannot have the focus, 5 for a hidden control.
    void Focus(Control& control);
    /// Called when the form's window gets the keyboard focus. Passes it to the control that last had it.
    void FocusAgain();
    /// If `control` has the focus, removes the focus from it and returns true. Afterwards no control has the focus.
    bool TakeFocusFrom(const Control& control);
    /// Moves the focus by `step` controls (1 or -1) among the controls that Tab reaches, in a circle. If no control has
    /// the focus, the first one gets it, or the last one for -1.
    void Walk(int step);

    /// The visible controls whose access key is `character` (lower case), in tab order.
    std::vector<Control*> WithAccessKey(char16_t character) const;
    /// Moves the focus to the next of `controls`, and from the last one to the first. `controls` must be in tab order
    /// and not empty.
    void FocusNextOf(const std::vector<Control*>& controls);

 private:
    std::vector<Control*> Reachable() const;

    const std::vector<std::unique_ptr<Control>>& controls_;
    std::vector<Control*> order_;
    Control* focused_ = nullptr;
};

}  // namespace runtime
