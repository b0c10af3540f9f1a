// The window system as forms use it: windows with controls on them, the screen, keys, and pending events. A back end
// gives the windows; the model (Form, Control) holds every property's value and sets it on the window.
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

/// Why a form is asked to unload, in the classic runtime's numbers.
enum class UnloadReason : std::int32_t { kUser = 0, kCode = 1, kSystemEnd = 2 };

/// Held modifier keys, as key events report them.
enum ShiftState : std::int16_t { kShift = 1, kCtrl = 2, kAlt = 4 };

/// Keys that forms know by themselves; the platform's virtual keys.
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
    kKeyF4 = 115,
};

/// What the window system reports to a form. Called only while the window exists, on its thread.
class WindowEvents {
 public:
    virtual ~WindowEvents() = default;

    /// The window asks to be closed.
    virtual void Closing(UnloadReason reason) = 0;
    /// The window was made, moved or sized, by the form or by others, or its state may have changed. `outer` are its
    /// bounds in whole pixels, meaningless for an icon; `state` is none while the window is hidden. May come without a
    /// change.
    virtual void BoundsChanged(const Rect& outer, std::optional<WindowState> state) = 0;
    /// The window is visible or hidden, by the form's doing or by that of others. May come without a change.
    virtual void VisibilityChanged(bool visible) = 0;
    virtual void Activated() = 0;
    /// The window itself got the keyboard, which is meant for one of its controls.
    virtual void KeyboardArrived() = 0;
    /// The window is about to lose the keyboard.
    virtual void KeyboardLeaves() = 0;
    /// The window is being destroyed, but not by its form: by other code, or because its thread ends.
    virtual void Lost() = 0;

    // Keys, before the focused control sees them. True: the key was used up.

    /// `keyCode` is the platform's virtual key. `isRepeated`: it was down before, and is reported again because it is
    /// held.
    virtual bool KeyDown(std::int16_t keyCode, std::int16_t shift, bool isRepeated = false) = 0;
    virtual bool KeyUp(std::int16_t keyCode, std::int16_t shift) = 0;
    virtual bool KeyPress(char16_t character) = 0;
    /// Alt together with `character`.
    virtual bool AccessKey(char16_t character) = 0;

    // Controls are meant by the order in which they were added, from 0.

    virtual void Clicked(std::size_t control) = 0;
    /// The user changed the text of a control with an edit part.
    virtual void Edited(std::size_t control) = 0;
    /// The user selected an item of the control's list, from 0; -1 for none. An editable combo shows the item's text.
    virtual void Chosen(std::size_t control, int item) = 0;
};

/// A form's window. Destroying it closes the window without asking anybody.
class NativeWindow {
 public:
    virtual ~NativeWindow() = default;

    virtual void SetCaption(const String& caption) = 0;
    /// To the nearest pixel. When the window's bounds have changed, they are reported.
    virtual void SetBounds(const Rect& outer) = 0;
    virtual void Show(WindowState state) = 0;
    /// Hides the window also when others have shown it.
    virtual void Hide() = 0;
    /// Takes effect at once, and is reported. Nothing for a hidden window.
    virtual void SetState(WindowState state) = 0;
    virtual void SetBackColour(Colour colour) = 0;
    /// Above all windows that are not topmost, or among them again; nothing else changes.
    virtual void SetTopMost(bool onTop) = 0;
    /// Size of the client area.
    virtual Size InnerSize() const = 0;
    virtual NativeHandle Handle() const = 0;
    /// A device context that lives as long as the window.
    virtual NativeHandle DeviceContext() = 0;
    /// The window owns the control.
    virtual NativeControl& AddControl(const ControlLook& look) = 0;
};

/// How a window looks when it is made; it is made hidden.
struct WindowDesign {
    String caption;
    BorderStyle border = BorderStyle::kSizable;
    Rect outer;
    Colour backColour = kButtonFace;
};

/// A window's modal time. While it lives and was not ended, the thread's other windows take no input.
class ModalLoop {
 public:
    virtual ~ModalLoop() = default;

    /// Lets events run until End was called or the program is asked to quit, which stays pending for the outer loop. An
    /// error of a handler ends it and is thrown.
    virtual void Run() = 0;
    /// Gives the other windows their input back, and lets Run return. May be called more than once.
    virtual void End() = 0;
};

/// The width for texts whose lines break at line ends only.
inline constexpr Twips kEndlessWidth = std::numeric_limits<Twips>::infinity();

class WindowsPort {
 public:
    virtual ~WindowsPort() = default;

    /// `events` must outlive the window. Error 7 when the window system refuses.
    virtual std::unique_ptr<NativeWindow> MakeWindow(const WindowDesign& design, WindowEvents& events) = 0;
    /// Outer size of a window whose client area measures `inner`, in whole pixels.
    virtual Size OuterSize(Size inner, BorderStyle border) = 0;
    virtual Size ScreenSize() = 0;
    /// The pointer's shape while it is over the component's windows, in the classic runtime's numbers.
    virtual std::int16_t MousePointer() = 0;
    virtual void SetMousePointer(std::int16_t shape) = 0;
    /// Size of `text` as a label shows it, its lines wrapped at `wrapWidth` (kEndlessWidth: not at all).
    virtual Size TextSize(StringView text, const Font& font, Twips wrapWidth) = 0;
    /// The number of the window message that all modules of the session know by `name`, which crosses in the system's
    /// ANSI code page; 0 when there is none.
    virtual std::uint32_t RegisterMessage(StringView name) = 0;
    /// Lets all pending events run. An error of a handler ends it and is thrown. A request to quit stays pending.
    virtual void DoEvents() = 0;
    /// Starts the modal time of a window that is about to be shown.
    virtual std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) = 0;
    /// Presses Alt together with `character` for the active window, without waiting for what comes of it. Nothing for a
    /// blank or a control character, in every back end: Alt with these belongs to the system, which opens the system
    /// menu, switches to another program or passes Enter on to the owner.
    void SendAltKey(char16_t character) {
        const bool isBlankOrControl = character <= u' ' || character == kDeleteCharacter;
        if (!isBlankOrControl) PressWithAlt(character);
    }

 protected:
    /// `character` is neither a blank nor a control character.
    virtual void PressWithAlt(char16_t character) = 0;

 private:
    static constexpr char16_t kDeleteCharacter = 0x7F;
};

}  // namespace runtime
