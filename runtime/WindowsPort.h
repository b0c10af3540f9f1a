// The window system as forms use it: windows with controls on them, the screen, and pending events. A back end gives
// the windows; the model (Form, Control) holds every property's value and tells the window what changed.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/Geometry.h"
#include "runtime/Text.h"

namespace runtime {

enum class WindowState : std::int32_t { kNormal = 0, kMinimised = 1, kMaximised = 2 };
enum class BorderStyle : std::int32_t { kSizable = 2, kFixedDialog = 3 };

/// Why a form is asked to unload, in the classic runtime's numbers.
enum class UnloadReason : std::int32_t { kUser = 0, kCode = 1, kSystemEnd = 2 };

enum class ControlKind { kStatusBar };

/// Held modifier keys, as key events report them.
enum ShiftState : std::int16_t { kShift = 1, kCtrl = 2, kAlt = 4 };

/// A platform handle (window, device context) as a number; 32 bits wide in the component.
using NativeHandle = std::intptr_t;

/// What the window system tells a form. Called only while the window exists, on its thread.
class WindowEvents {
 public:
    virtual ~WindowEvents() = default;

    /// The window asks to be closed.
    virtual void Closing(UnloadReason reason) = 0;
    /// The window's state changed while it is visible, or the window system moved or sized it: new outer bounds.
    virtual void BoundsChanged(const Rect& outer, WindowState state) = 0;
    virtual void Activated() = 0;
    /// `keyCode` is the platform's virtual key.
    virtual void KeyDown(std::int16_t& keyCode, std::int16_t shift) = 0;
    virtual void KeyUp(std::int16_t& keyCode, std::int16_t shift) = 0;
    virtual void KeyPress(char16_t& character) = 0;
    /// The window goes without having been unloaded: somebody else destroyed it, or its thread ends.
    virtual void Lost() = 0;
};

/// A control's window. Destroyed with its NativeWindow.
class NativeControl {
 public:
    virtual ~NativeControl() = default;

    /// Place in the form's client area.
    virtual void SetBounds(const Rect& bounds) = 0;
    virtual void SetText(const String& text) = 0;
    /// Repaints at once.
    virtual void Refresh() = 0;
};

/// A form's window. Destroying it closes the window without asking anybody.
class NativeWindow {
 public:
    virtual ~NativeWindow() = default;

    virtual void SetCaption(const String& caption) = 0;
    virtual void SetBounds(const Rect& outer) = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Takes effect, and is reported, at once on a visible window; otherwise when it is shown.
    virtual void SetState(WindowState state) = 0;
    virtual void SetBackColour(Colour colour) = 0;
    /// Size of the client area.
    virtual Size InnerSize() const = 0;
    virtual NativeHandle Handle() const = 0;
    /// A device context that lives as long as the window.
    virtual NativeHandle DeviceContext() = 0;
    /// The window owns the control.
    virtual NativeControl& AddControl(ControlKind kind, const String& name) = 0;
};

/// How a window looks when it is made; it is made hidden.
struct WindowDesign {
    String caption;
    BorderStyle border = BorderStyle::kSizable;
    Rect outer;
    Colour backColour = kButtonFace;
};

class WindowsPort {
 public:
    virtual ~WindowsPort() = default;

    /// `events` must outlive the window. Error 7 when the window system refuses.
    virtual std::unique_ptr<NativeWindow> MakeWindow(const WindowDesign& design, WindowEvents& events) = 0;
    /// Outer size of a window whose client area measures `inner`.
    virtual Size OuterSize(Size inner, BorderStyle border) = 0;
    virtual Size ScreenSize() = 0;
    /// The pointer's shape while it is over the component's windows, in the classic runtime's numbers.
    virtual std::int16_t MousePointer() = 0;
    virtual void SetMousePointer(std::int16_t shape) = 0;
    /// The number of the window message that all modules of the session know by `name`; 0 when there is none.
    virtual std::uint32_t RegisterMessage(StringView name) = 0;
    /// Lets all pending events run. An error of a handler ends it and is thrown. A request to quit stays pending.
    virtual void DoEvents() = 0;
};

}  // namespace runtime
