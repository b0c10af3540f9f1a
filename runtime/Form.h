// Forms: objects that exist before they are loaded. The first access to a built-in property or to a control loads the
// form: its window is made with the design values and its load handler runs. Unload runs query-unload and unload,
// destroys the window and takes the form out of the loaded ones; a later access loads it anew.
//
// A form that is loading may be unloaded by its own load handler: the access that loaded it then fails with error 364,
// and so does every access from inside the handler, which would else load the form a second time.
// Unloading a form whose unload is running does nothing. An error of an unload handler does not keep the form: it is
// thrown when the form is unloaded. An error of the load handler takes the form back without its unload handlers.
//
// Keys come to the form before its focused control; what it does with them is in FormKeys.h.
//
// A form is used on the thread that loaded it, except where a function says otherwise. It owns its controls, which
// exist as long as the form; references to them stay valid when it is unloaded.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "runtime/Control.h"
#include "runtime/TabOrder.h"
#include "runtime/WindowsPort.h"

namespace runtime {

/// A form's values at design time.
struct FormDesign {
    String name = {};
    String caption = {};
    String tag = {};
    Twips left = 0;
    Twips top = 0;
    Size inner;  ///< client area
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
    /// What the form and its controls were designed with; looking does not load it.
    const FormDesign& Design() const { return design_; }
    std::vector<const ControlDesign*> ControlDesigns() const;
    bool IsLoaded() const { return window_ != nullptr; }
    /// Its unload handlers are running.
    bool IsUnloading() const { return stage_ == Stage::kUnloading; }

    /// Makes the window and runs the load handler unless that was done. FormUnloadedInLoad when the load handler
    /// unloaded it.
    void EnsureLoaded();
    /// Nothing for a form that is not loaded. A handler may refuse; then the form stays, and the answer is false.
    bool Unload(UnloadReason reason = UnloadReason::kCode);
    /// Unloads the form without its handlers, because its window belongs to another thread or ended with it. May be
    /// called on any thread when the form's own thread no longer uses it.
    void AbandonWindow();

    String Caption();
    void SetCaption(StringView caption);
    /// A text identifier for the localisation, or empty.
    String Tag();

    /// Shows the form and lets events run until it is hidden, by itself or by others, or unloaded, or the program is
    /// asked to quit; it is not visible afterwards. The thread's other windows are disabled until then. An error of a
    /// handler ends it and is thrown. Error 400 when the form is visible already.
    void ShowModal();

    /// Outer bounds of the window on the screen: whole pixels, in twips. While minimised: those of the normal state.
    Twips Left();
    Twips Top();
    Twips Width();
    Twips Height();
    /// To the nearest pixel. Error 384 while minimised or maximised.
    void SetWidth(Twips width);
    void SetHeight(Twips height);
    void SetSize(Size outer);
    void Move(Twips left, Twips top);
    /// Size of the client area, in twips.
    Size InnerSize();

    WindowState State();
    void SetState(WindowState state);
    /// Follows the window, whatever shows or hides it. Not changed while the window is away with its minimised owner.
    bool Visible();
    /// False hides the window in any case.
    void SetVisible(bool visible);
    void Hide();
    Colour BackColour();
    void SetBackColour(Colour colour);
    /// Unit of the form's inner coordinates, 0..7 in the classic runtime's numbers (1 = twips); else error 380.
    std::int16_t ScaleMode();
    void SetScaleMode(std::int16_t mode);
    /// The font that TextSize measures with; the controls have fonts of their own.
    runtime::Font Font();
    void SetFont(const runtime::Font& font);
    /// Width of the widest line and height of all lines of `text` in the form's font; no text is one line high.
    Size TextSize(StringView text);
    /// Puts the window above all windows that are not topmost, or takes it back among them.
    void SetTopMost(bool onTop);
    NativeHandle Handle();
    NativeHandle DeviceContext();

    /// In the order in which they were added.
    const std::vector<std::unique_ptr<Control>>& Controls();
    /// The control that has the focus, or has it whenever the form is active; null when none can have it.
    Control* FocusedControl();
    /// Error 438 for a control that never takes the focus, 5 for a hidden one.
    void SetFocus(Control& control);

 protected:
    /// Error 5 while the form is loaded.
    Control& AddControl(ControlDesign design);

    virtual void OnLoad() {}
    virtual void OnQueryUnload(bool& /*cancel*/, UnloadReason /*reason*/) {}
    virtual void OnUnload(bool& /*cancel*/) {}
    virtual void OnActivate() {}
    /// The client or another program showed the form's window. Comes after the first resize.
    virtual void OnShownByOthers() {}
    virtual void OnResize() {}
    /// A handler sets the key or character to 0 to swallow it.
    virtual void OnKeyDown(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {}
    virtual void OnKeyUp(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {}
    virtual void OnKeyPress(char16_t& /*character*/) {}
    /// The focused control's own handler; comes after OnKeyPress unless that swallowed the character.
    virtual void OnControlKeyPress(Control& /*control*/, char16_t& /*character*/) {}
    virtual void OnClick(Control& /*control*/) {}

 private:
    void Closing(UnloadReason reason) override;
    void BoundsChanged(const Rect& outer, std::optional<WindowState> state) override;
    void VisibilityChanged(bool visible) override;
    void Activated() override;
    void KeyboardArrived() override { tabs_.FocusAgain(); }
    void KeyboardLeaves() override { tabs_.NoteFocus(); }
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
        kLoadingWithoutWindow,  ///< before the window is made, or after the load handler has unloaded the form
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
    bool enterPressedHere_ = false;     ///< since the form was loaded, and not as a repetition
    bool isDestroyedByOthers_ = false;  ///< the window is gone; an unload cannot be refused
    Colour backColour_ = kButtonFace;
    runtime::Font font_;
    std::int16_t scaleMode_ = 1;
};

}  // namespace runtime
