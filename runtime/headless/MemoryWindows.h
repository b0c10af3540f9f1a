// The window system in memory: windows without a screen, for fast tests and for machines without a display. A test
// simulates the user's and the system's actions, and reads the values that the forms have set.
#pragma once

#include <deque>
#include <functional>
#include <utility>
#include <vector>

#include "runtime/PixelGrid.h"
#include "runtime/WindowsPort.h"
#include "runtime/headless/MemoryControl.h"

namespace runtime::headless {

class MemoryWindows : public WindowsPort {
 public:
    std::unique_ptr<NativeWindow> MakeWindow(const WindowDesign& design, WindowEvents& events) override;
    Size OuterSize(Size inner, BorderStyle border) override;
    Size ScreenSize() override { return screen; }
    std::int16_t MousePointer() override { return pointers.empty() ? std::int16_t{0} : pointers.back(); }
    void SetMousePointer(std::int16_t shape) override { pointers.push_back(shape); }
    Size TextSize(StringView text, const Font& font, Twips wrapWidth) override;
    std::uint32_t RegisterMessage(StringView name) override;
    void DoEvents() override;
    std::unique_ptr<ResolutionScope> UseSystemResolution() override;
    void PlayQuestionSound() override { ++questionSounds; }
    bool CopyToClipboard(StringView text) override;
    std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) override;

    /// Queues an action of the user or the window system. The next DoEvents or modal loop runs it.
    void Post(std::function<void()> happening) { pending_.push_back(std::move(happening)); }
    /// Runs the next queued action. False if there is no queued action.
    bool RunOne();
    /// Asks the program to quit, as the system's quit message does. Modal loops end, and the request stays pending.
    void Quit() { quitting = true; }
    /// The windows that exist, in the order in which they were created.
    const std::vector<MemoryWindow*>& Windows() const { return windows_; }
    /// Returns the newest window. At least one window must exist.
    MemoryWindow& Last() const { return *windows_.back(); }

    /// The pixel grid to which the bounds of windows are rounded.
    PixelGrid Grid() const { return PixelGrid(dpi); }
    /// Makes a pixel as large as a twip, so that whole numbers of twips are not rounded.
    void MakePixelsTwips() { dpi = 1440; }

    Size screen{19200, 15360};
    int dpi = 96;  ///< 15 twips per pixel
    /// Every pointer shape that was set, in order.
    std::vector<std::int16_t> pointers;
    /// Called when a visible window is destroyed, or when its form hides it.
    std::function<void()> onWindowHidden;
    /// The next `refuseWindows` calls of MakeWindow fail.
    int refuseWindows = 0;
    bool quitting = false;
    /// The characters that were sent with Alt, in order.
    String altKeys;
    /// If true, sending a character with Alt raises error 5.
    bool failsAltKeys = false;
    /// The number of existing objects that UseSystemResolution has made.
    int systemResolutions = 0;
    int questionSounds = 0;
    String clipboard;
    /// True while another program holds the clipboard.
    bool isClipboardInUse = false;
    /// The names of the registered messages, in order.
    std::vector<String> messages;

 protected:
    /// Queues the access key for the newest visible window.
    void PressWithAlt(char16_t character) override;

 private:
    friend class MemoryWindow;

    std::vector<MemoryWindow*> windows_;
    std::deque<std::function<void()>> pending_;
    NativeHandle nextHandle_ = 0x1000;
};

class MemoryWindow : public NativeWindow {
 public:
    MemoryWindow(MemoryWindows& system, const WindowDesign& design, WindowEvents& events, NativeHandle handle);
    ~MemoryWindow() override;

    void SetCaption(const String& newCaption) override { caption = newCaption; }
    void SetBounds(const Rect& newOuter) override;
    void Show(WindowState newState) override;
    void Hide() override;
    void SetState(WindowState newState) override;
    void SetBackColour(Colour colour) override { backColour = colour; }
    void SetTopMost(bool onTop) override { topMost.push_back(onTop); }
    Size InnerSize() const override;
    NativeHandle Handle() const override { return handle_; }
    NativeHandle DeviceContext() override { return handle_ + 1; }
    void SetAccessibleDescription(const String& newDescription) override { accessibleDescription = newDescription; }
    NativeControl& AddControl(const ControlLook& look) override;

    /// Returns the first control with this name. Error 438 if there is no such control.
    MemoryControl& Control(StringView name) const;
    /// Returns the form's event functions. A test calls them in place of the window system.
    WindowEvents& Events() const { return events_; }
    /// Shows or hides the window as another program would. A window that was hidden becomes active, unless it is
    /// minimised or `activates` is false.
    void ShowExternally(WindowState newState = WindowState::kNormal, bool activates = true);
    void HideExternally();
    /// Presses and releases a key as the user would. Enter, Space, Escape and Tab also produce a character, unless the
    /// form consumes the key or Alt or Ctrl is held.
    void Press(std::int16_t keyCode, std::int16_t shift = 0);
    void Type(StringView text);

    String caption;
    String accessibleDescription;
    BorderStyle border;
    bool isRightToLeft;
    Rect outer;
    /// Left and top after each call of SetBounds, in order.
    std::vector<std::pair<Twips, Twips>> places;
    WindowState state = WindowState::kNormal;
    bool visible = false;
    bool enabled = true;  ///< true if the window accepts input
    Colour backColour;
    std::vector<std::unique_ptr<MemoryControl>> controls;
    MemoryControl* focused = nullptr;
    /// The arguments of the calls of SetTopMost, in order.
    std::vector<bool> topMost;

 private:
    static bool Exists(const MemoryWindows& system, const MemoryWindow* window);
    void TypeOne(char16_t character);

    MemoryWindows& system_;
    WindowEvents& events_;
    NativeHandle handle_;
};

}  // namespace runtime::headless
