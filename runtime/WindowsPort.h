// The interface of the window system for forms: windows with controls, the screen, keys and pending events. Each back
// end implements the interface. The model (Form, Control) stores the properties and passes to the window what the
// window needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>

#include "runtime/Font.h"
#include "runtime/Geometry.h"
#include "runtime/NativeControl.h"
#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace runtime {

enum class WindowState : std::int32_t { kNormal = 0, kMinimised = 1, kMaximised = 2 };
enum class BorderStyle : std::int32_t { kSizable = 2, kFixedDialog = 3 };

/// The reason for an unload. The values are those of the classic runtime.
enum class UnloadReason : std::int32_t { kUser = 0, kCode = 1, kSystemEnd = 2 };

/// The modifier keys that are held during a key event.
enum ShiftState : std::int16_t { kShift = 1, kCtrl = 2, kAlt = 4 };

/// The Windows virtual-key codes that forms and their back ends handle.
enum KeyCode : std::int16_t {
    kKeyTab = 9,
    kKeyEnter = 13,
    kKeyEscape = 27,
    kKeySpace = 32,
    kKeyEnd = 35,
    kKeyHome = 36,
    kKeyLeft = 37,
    kKeyUp = 38,
    kKeyRight = 39,
    kKeyDown = 40,
    kKeyC = 67,
    kKeyF4 = 115,
};

/// The events that a window reports to its form. The window calls the functions only on its own thread and only while
/// it exists.
class WindowEvents {
 public:
    virtual ~WindowEvents() = default;

    /// The user or the system asks to close the window.
    virtual void Closing(UnloadReason reason) = 0;
    /// The window was created, moved or resized, or its state changed. The cause may be the form, the user or other
    /// code. May be called without a change.
    /// - `outer`: the bounds in twips, rounded to whole pixels; meaningless while the window is minimised.
    /// - `state`: no value while the window is hidden.
    virtual void BoundsChanged(const Rect& outer, std::optional<WindowState> state) = 0;
    /// The window was shown or hidden, by the form or by other code. May be called without a change.
    virtual void VisibilityChanged(bool visible) = 0;
    virtual void Activated() = 0;
    /// The window itself got the keyboard focus. The form passes the focus to a control.
    virtual void GotFocus() = 0;
    /// The window may be about to lose the keyboard focus.
    virtual void LosingFocus() = 0;
    /// Other code destroys the window.
    virtual void Lost() = 0;

    // The form gets these key events before the focused control. The functions return true if the form consumed the
    // key.

    /// `keyCode` is a Windows virtual-key code. `isRepeated` is true for the automatic repetitions of a held key.
    virtual bool KeyDown(std::int16_t keyCode, std::int16_t shift, bool isRepeated = false) = 0;
    virtual bool KeyUp(std::int16_t keyCode, std::int16_t shift) = 0;
    virtual bool KeyPress(char16_t character) = 0;
    /// Alt was pressed together with `character`.
    virtual bool AccessKey(char16_t character) = 0;

    // Events of controls. `control` is the index of the control in the order of AddControl, counted from 0.

    virtual void Clicked(std::size_t control) = 0;
    /// The user changed the text of a control with an edit part.
    virtual void Edited(std::size_t control) = 0;
    /// The user selected the item with the index `item`, counted from 0; -1 means that no item is selected. An editable
    /// combo already shows the item's text.
    virtual void Chosen(std::size_t control, int item) = 0;
};

/// A form's window. The destructor destroys the window without calling WindowEvents.
class NativeWindow {
 public:
    virtual ~NativeWindow() = default;

    virtual void SetCaption(const String& caption) = 0;
    /// Rounds to the nearest pixel. Calls BoundsChanged if the bounds changed.
    virtual void SetBounds(const Rect& outer) = 0;
    virtual void Show(WindowState state) = 0;
    /// Hides the window, even if other code has shown it.
    virtual void Hide() = 0;
    /// Changes the state at once and calls BoundsChanged. Does nothing for a hidden window.
    virtual void SetState(WindowState state) = 0;
    virtual void SetBackColour(Colour colour) = 0;
    /// If `onTop` is true, makes the window topmost. Otherwise makes it an ordinary window. Keeps position and size.
    virtual void SetTopMost(bool onTop) = 0;
    /// Returns the size of the client area.
    virtual Size InnerSize() const = 0;
    virtual NativeHandle Handle() const = 0;
    /// Returns a device context that is valid as long as the window exists.
    virtual NativeHandle DeviceContext() = 0;
    /// Sets the description that a screen reader announces after the window's caption.
    virtual void SetAccessibleDescription(const String& description) = 0;
    /// Adds a control. The window owns the control.
    virtual NativeControl& AddControl(const ControlLook& look) = 0;
};

/// The initial values of a window. A new window is hidden.
struct WindowDesign {
    String caption;
    BorderStyle border = BorderStyle::kSizable;
    Rect outer;
    Colour backColour = kButtonFace;
    bool isRightToLeft = false;  ///< true if the window and its controls are mirrored
};

/// The modal loop of a window. The thread's other windows are disabled until End is called or this object is destroyed.
class ModalLoop {
 public:
    virtual ~ModalLoop() = default;

    /// Processes events until End is called or the program is asked to quit. The request to quit stays pending for the
    /// outer loop. If a handler throws, the loop ends and the exception is thrown.
    virtual void Run() = 0;
    /// Enables the other windows again and makes Run return. May be called more than once.
    virtual void End() = 0;
};

/// See WindowsPort::UseSystemResolution.
class ResolutionScope {
 public:
    virtual ~ResolutionScope() = default;
};

/// With this wrap width, lines do not wrap. A line ends only where the text has a line break.
inline constexpr Twips kEndlessWidth = std::numeric_limits<Twips>::infinity();

class WindowsPort {
 public:
    virtual ~WindowsPort() = default;

    /// Makes a window. `events` must outlive the window. Error 7 if the window system cannot create the window.
    virtual std::unique_ptr<NativeWindow> MakeWindow(const WindowDesign& design, WindowEvents& events) = 0;
    /// Returns the outer size of a window with the client area `inner`, rounded to whole pixels.
    virtual Size OuterSize(Size inner, BorderStyle border) = 0;
    virtual Size ScreenSize() = 0;
    /// The pointer's shape over the component's windows. The values are those of the classic runtime.
    virtual std::int16_t MousePointer() = 0;
    virtual void SetMousePointer(std::int16_t shape) = 0;
    /// Returns the size of `text` in a label whose lines wrap at `wrapWidth`, in twips. With kEndlessWidth, lines do
    /// not wrap.
    virtual Size TextSize(StringView text, const Font& font, Twips wrapWidth) = 0;
    /// Registers the window message `name` and returns its number. The number is the same for all programs of the
    /// session. Returns 0 on failure. The name is converted to the system's ANSI code page.
    virtual std::uint32_t RegisterMessage(StringView name) = 0;
    /// Processes all pending events. If a handler throws, the call ends and the exception is thrown. A request to quit
    /// stays pending.
    virtual void DoEvents() = 0;
    /// While the returned object exists, the thread creates and measures windows at the system's DPI. In a program that
    /// is aware of each monitor's DPI, the window system scales these windows on monitors with another DPI.
    virtual std::unique_ptr<ResolutionScope> UseSystemResolution() = 0;
    /// Plays the user's sound for questions. Does not wait for the end of the sound.
    virtual void PlayQuestionSound() = 0;
    /// Replaces the contents of the clipboard. Returns false on failure, for example if another program holds the
    /// clipboard.
    virtual bool CopyToClipboard(StringView text) = 0;
    /// Prepares the modal loop of `window`: disables the thread's other windows. Call it just before the window is
    /// shown, then call Run.
    virtual std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) = 0;
    /// Presses Alt together with `character` in the active window. Does not wait for the effect. Does nothing for a
    /// blank or an ASCII control character, because Windows itself uses some of these keys with Alt. For example,
    /// Alt+Space opens the system menu, and Alt+Tab switches to another program.
    void SendAltKey(char16_t character) {
        const bool isBlankOrControl = character <= u' ' || character == kDeleteCharacter;
        if (!isBlankOrControl) PressWithAlt(character);
    }

 protected:
    /// `character` must not be a blank or an ASCII control character.
    virtual void PressWithAlt(char16_t character) = 0;

 private:
    static constexpr char16_t kDeleteCharacter = 0x7F;
};

}  // namespace runtime
