// A form is a window with controls. The form object also exists while it has no window.
// - Load: the first access to a property of the form or of a control creates the window with the design values and runs
//   the load handler.
// - Unload: runs the query-unload and unload handlers, removes the form from LoadedForms() and destroys the window. A
//   later access loads the form again.
//
// Special cases:
// - A load handler may unload its own form. The access that loaded the form then fails with error 364. Every later
//   access from inside the handler also fails with error 364.
// - Unloading a form whose unload handlers are running does nothing.
// - If an unload handler throws, the form is still unloaded. Then the error is thrown.
// - If the load handler throws, the form is unloaded without running its unload handlers. Then the error is thrown.
//
// The form gets each key before its focused control gets the key. FormKeys.h contains the rules.
//
// Use a form only on the thread that loaded it. Only AbandonWindow may be called on other threads. The form owns its
// controls. References to the controls stay valid when the form is unloaded.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "runtime/Control.h"
#include "runtime/TabOrder.h"
#include "runtime/WindowsPort.h"

namespace runtime {

/// The values that a form has after each load.
struct FormDesign {
    String name = {};
    String caption = {};
    String tag = {};
    Twips left = 0;
    Twips top = 0;
    Size inner;  ///< size of the client area
    BorderStyle border = BorderStyle::kSizable;
    Colour backColour = kButtonFace;
};

class Form : private WindowEvents {
 public:
    explicit Form(FormDesign design);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    ~Form() override;

    const String& Name() const { return design_.name; }
    /// The design values of the form and its controls. These functions do not load the form.
    const FormDesign& Design() const { return design_; }
    std::vector<const ControlDesign*> ControlDesigns() const;
    bool IsLoaded() const { return window_ != nullptr; }
    /// True while the unload handlers run.
    bool IsUnloading() const { return stage_ == Stage::kUnloading; }

    /// Loads the form if it is not loaded. Throws FormUnloadedInLoad if the form's load handler unloads the form.
    void EnsureLoaded();
    /// Unloads the form and returns true. If a handler refuses, returns false, and the form stays loaded. If the form
    /// is not loaded or its unload handlers are running, does nothing and returns true.
    bool Unload(UnloadReason reason = UnloadReason::kCode);
    /// Unloads the form without running its handlers. Use it if the window belongs to another thread or was destroyed
    /// with its thread. Any thread may call after the form's own thread has stopped using the form.
    void AbandonWindow();

    String Caption();
    void SetCaption(StringView caption);
    /// The identifier of the form's text for localisation; may be empty.
    String Tag();

    /// Shows the form and processes events until the form is hidden or unloaded, or until the program is asked to quit.
    /// The thread's other windows are disabled during this time. On return the form is not visible. If a handler
    /// throws, the loop ends and the exception is thrown. Error 400 if the form is already visible.
    void ShowModal();

    /// Outer bounds of the window on the screen, in twips, rounded to whole pixels. While the window is minimised, the
    /// functions return its previous bounds.
    Twips Left();
    Twips Top();
    Twips Width();
    Twips Height();
    /// SetWidth, SetHeight and Move round to the nearest pixel. Error 384 while the window is minimised or
    /// maximised.
    void SetWidth(Twips width);
    void SetHeight(Twips height);
    void Move(Twips left, Twips top);
    /// Size of the client area, in twips.
    Size InnerSize();

    WindowState State();
    void SetState(WindowState state);
    /// True while the window is visible, even if other code has shown it. Stays true while Windows hides the window
    /// because its owner is minimised.
    bool Visible();
    /// `false` always hides the window, even if Visible already returns false.
    void SetVisible(bool visible);
    void Hide();
    Colour BackColour();
    void SetBackColour(Colour colour);
    /// The unit of the form's inner coordinates as a number of the classic runtime, from 0 to 7; 1 is twips. The value
    /// is only stored, because this runtime always uses twips. Error 380 for another number.
    std::int16_t ScaleMode();
    void SetScaleMode(std::int16_t mode);
    /// The font for TextSize. The controls have their own fonts.
    runtime::Font Font();
    void SetFont(const runtime::Font& font);
    /// Returns the size of `text` in the form's font, in twips: the width of the widest line and the height of all
    /// lines. An empty text has the height of one line.
    Size TextSize(StringView text);
    /// If `onTop` is true, makes the window topmost (above all windows that are not topmost). Otherwise makes it an
    /// ordinary window.
    void SetTopMost(bool onTop);
    /// Sets the description that a screen reader announces after the form's caption.
    void SetAccessibleDescription(StringView description);
    NativeHandle Handle();
    NativeHandle DeviceContext();

    /// Returns the controls in the order in which they were added.
    const std::vector<std::unique_ptr<Control>>& Controls();
    /// Returns the control that has the focus, or that gets the focus when the form becomes active. Null if there is no
    /// such control.
    Control* FocusedControl();
    /// Error 438 for a control of a kind that cannot have the focus. Error 5 for a hidden control.
    void SetFocus(Control& control);

 protected:
    /// Adds a control. Error 5 while the form is loaded.
    Control& AddControl(ControlDesign design);

    /// True if the form is mirrored when it is loaded. A mirrored form counts horizontal positions from its right edge
    /// and shows its texts from right to left. The values of the positions stay the same.
    virtual bool IsRightToLeft() const { return false; }
    virtual void OnLoad() {}
    virtual void OnQueryUnload(bool& /*cancel*/, UnloadReason /*reason*/) {}
    virtual void OnUnload(bool& /*cancel*/) {}
    virtual void OnActivate() {}
    /// Called when the client or another program has shown the form's window. On the first show, OnResize is called
    /// before this function.
    virtual void OnShownByOthers() {}
    virtual void OnResize() {}
    /// To consume the key or the character, a handler sets it to 0.
    virtual void OnKeyDown(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {}
    virtual void OnKeyUp(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {}
    virtual void OnKeyPress(char16_t& /*character*/) {}
    /// The handler of the focused control. Called after OnKeyPress, unless OnKeyPress consumed the character.
    virtual void OnControlKeyPress(Control& /*control*/, char16_t& /*character*/) {}
    virtual void OnClick(Control& /*control*/) {}

 private:
    void Closing(UnloadReason reason) override;
    void BoundsChanged(const Rect& outer, std::optional<WindowState> state) override;
    void VisibilityChanged(bool visible) override;
    void Activated() override;
    void GotFocus() override { tabs_.RestoreFocus(); }
    void LosingFocus() override { tabs_.StoreFocus(); }
    void Lost() override;
    bool KeyDown(std::int16_t keyCode, std::int16_t shift, bool isRepeated) override;
    bool KeyUp(std::int16_t keyCode, std::int16_t shift) override;
    bool KeyPress(char16_t character) override;
    bool AccessKey(char16_t character) override;
    void Clicked(std::size_t control) override;
    void Edited(std::size_t control) override;
    void Chosen(std::size_t control, int item) override;

    /// The window exists from kLoading to kUnloading.
    enum class Stage {
        kUnloaded,
        kLoadingWithoutWindow,  ///< before the window is created, or after the load handler unloaded the form
        kLoading,
        kLoaded,
        kUnloading,  ///< the unload handlers run
    };

    void MakeWindow();
    void DestroyWindow();
    void SetBounds(const Rect& bounds);
    void Resized();
    bool ActOnKey(std::int16_t keyCode, std::int16_t shift, bool isRepeated);
    bool Press(Control& button);
    bool PressCancel(bool isRepeated);
    bool AcceptsRepeatedEnter(const Control* focused) const;

    const FormDesign design_;
    std::vector<std::unique_ptr<Control>> controls_;
    TabOrder tabs_{controls_};
    ModalLoop* modal_ = nullptr;

    std::unique_ptr<NativeWindow> window_;
    Stage stage_ = Stage::kUnloaded;
    String caption_;
    Rect bounds_;
    WindowState state_ = WindowState::kNormal;
    bool visible_ = false;
    bool wasShown_ = false;
    bool isRightToLeft_ = false;
    /// True if Enter was pressed since the load while no button had the focus. A repeat of a held Enter does not count.
    bool enterPressedHere_ = false;
    bool isDestroyedByOthers_ = false;  ///< true if other code destroys the window; no handler can refuse the unload
    Colour backColour_ = kButtonFace;
    runtime::Font font_;
    std::int16_t scaleMode_ = 1;
};

}  // namespace runtime
