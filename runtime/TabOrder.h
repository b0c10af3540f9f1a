// Stores the tab order of a form's controls, and the control that has the focus. Each form owns one TabOrder. The
// TabOrder refers to the form's controls. It is used only on the form's thread.
//
// The object asks the windows which control has the focus, because the mouse and screen readers also move the focus.
// While the form is not active, the object keeps the last answer.
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

    /// Restores the order of the design. Afterwards no control has the focus. The form calls this when it is loaded.
    void Reset();
    /// Empties the order. Afterwards no control has the focus. The form calls this when it is unloaded.
    void Clear();
    /// Moves `control` to position `place`, counted from 0. A place beyond the last position means the last position.
    /// Error 438 for a control that is not in the tab order.
    void Move(Control& control, int place);

    /// Returns the control that has the focus, or that gets the focus when the form becomes active. Null if there is no
    /// such control.
    Control* Focused();
    /// Stores which control has the focus. The form calls this before it loses the focus, so that RestoreFocus can
    /// restore the focus.
    void StoreFocus() { Focused(); }
    /// Gives `control` the focus. Error 438 for a kind that cannot have the focus. Error 5 for a hidden control.
    void Focus(Control& control);
    /// Passes the focus to the control that last had it. The form calls this when its window gets the keyboard focus.
    void RestoreFocus();
    /// If `control` has the focus, removes the focus from it and returns true. Afterwards no control has the focus.
    bool TakeFocusFrom(const Control& control);
    /// Moves the focus by `step` controls (1 or -1) among the controls that Tab reaches. After the last control comes
    /// the first control. If none of these controls has the focus, the first one gets it for 1, and the last one for
    /// -1.
    void Walk(int step);

    /// Returns the visible controls whose access key is `character` (lower case), in tab order.
    std::vector<Control*> WithAccessKey(char16_t character) const;
    /// Moves the focus to the next of `controls`. After the last control comes the first control. `controls` must be in
    /// tab order and not empty.
    void FocusNextOf(const std::vector<Control*>& controls);

 private:
    std::vector<Control*> Reachable() const;

    const std::vector<std::unique_ptr<Control>>& controls_;
    std::vector<Control*> order_;
    Control* focused_ = nullptr;
};

}  // namespace runtime
