// The window system in memory: windows without a screen, for fast tests and for running where there is no display.
// A test plays the user and the window system through it, and reads what forms asked of it.
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
    std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) override;

    /// Queues what the user or the window system does; it happens at the next DoEvents.
    void Post(std::function<void()> happening) { pending_.push_back(std::move(happening)); }
    /// Lets the next posted event happen; false when there is none.
    bool RunOne();
    /// A request to quit: modal loops end, and it stays pending.
    void Quit() { quitting = true; }
    /// The windows that exist, in the order in which they were made.
    const std::vector<MemoryWindow*>& Windows() const { return windows_; }
    /// The newest window. At least one must exist.
    MemoryWindow& Last() const { return *windows_.back(); }

    /// The screen's pixels, to which windows are rounded.
    PixelGrid Grid() const { return PixelGrid(dpi); }
    /// For tests of arithmetic: no whole twip is rounded then.
    void MakePixelsTwips() { dpi = 1440; }

    Size screen{19200, 15360};
    int dpi = 96;  ///< 15 twips a pixel
    /// Every pointer shape that was set, in order.
    std::vector<std::int16_t> pointers;
    /// Called for each window that leaves the screen, because it is hidden or destroyed.
    std::function<void()> onWindowGoes;
    /// How many of the next windows the window system refuses.
    int refuseWindows = 0;
    bool quitting = false;
    /// The characters that went out with Alt, in order.
    String altKeys;
    /// Resending a key is error 5.
    bool failsAltKeys = false;
    /// The registered messages' names, in order.
    std::vector<String> messages;

 protected:
    /// Happens to the newest visible window, as a posted event.
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
    NativeControl& AddControl(const ControlLook& look) override;

    /// The first control of that name; error 438 when there is none.
    MemoryControl& Control(StringView name) const;
    /// What the window system reports to the form.
    WindowEvents& Events() const { return events_; }
    /// Another program shows the window, in that state, or hides it. One that appears becomes the active one, unless it
    /// appears as an icon or `activates` is false.
    void OthersShow(WindowState newState = WindowState::kNormal, bool activates = true);
    void OthersHide();
    /// The user presses and releases a key. Enter, Space, Escape and Tab become characters, too, unless the form uses
    /// them up.
    void Press(std::int16_t keyCode, std::int16_t shift = 0);
    /// The user writes characters.
    void Type(StringView text);

    String caption;
    BorderStyle border;
    Rect outer;
    /// Left and top at every call of SetBounds, in order.
    std::vector<std::pair<Twips, Twips>> places;
    WindowState state = WindowState::kNormal;
    bool visible = false;
    bool enabled = true;  ///< takes input
    Colour backColour;
    std::vector<std::unique_ptr<MemoryControl>> controls;
    MemoryControl* focused = nullptr;
    /// Every call of SetTopMost, in order.
    std::vector<bool> topMost;

 private:
    static bool Lives(const MemoryWindows& system, const MemoryWindow* window);
    void TypeOne(char16_t character);

    MemoryWindows& system_;
    WindowEvents& events_;
    NativeHandle handle_;
};

}  // namespace runtime::headless
