// A control's window. The kinds that the user writes or chooses in have classes of their own.
#pragma once

#include <memory>
#include <utility>

#include "runtime/WindowsPort.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class Win32Window;
class Win32Windows;

/// What a control's own notification says.
enum class Notice { kNone, kClicked, kEdited, kChosen };

class Win32Control : public NativeControl {
 public:
    /// Error 7 when the system refuses. The window of `parent` owns the new one; `id` is what it reports itself as.
    static std::unique_ptr<Win32Control> Make(Win32Window& parent, Win32Windows& system, const ControlLook& look,
                                              int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& text) override;
    void SetFont(const Font& font) override;
    void SetVisible(bool visible) override;
    void SetFocus() override;
    bool HasKeyboard() const override;
    void Refresh() override;
    void SetAccessibleName(const String& name) override;

    HWND Window() const { return window_; }
    /// `code` is that of a WM_COMMAND of the window.
    virtual Notice NoticeOf(WORD code);
    /// The item that the user chose, when NoticeOf said so.
    virtual int ChosenItem() { return -1; }

 protected:
    struct WindowKind {
        const wchar_t* className;
        DWORD style;
        DWORD extendedStyle;
    };
    Win32Control(Win32Window& parent, Win32Windows& system, ControlKind kind, int id, const WindowKind& windowKind);

    /// Sets a flag as long as it lives.
    class ScopedFlag {
     public:
        explicit ScopedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
        ScopedFlag(const ScopedFlag&) = delete;
        ScopedFlag& operator=(const ScopedFlag&) = delete;
        ~ScopedFlag() { flag_ = before_; }

     private:
        bool& flag_;
        const bool before_;
    };

 private:
    Win32Control(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);
    static WindowKind KindOfWindow(ControlKind kind);

    Win32Windows& system_;
    const ControlKind kind_;
    Icon icon_;
    HWND window_ = nullptr;
    HWND name_ = nullptr;  ///< a hidden label: screen readers call a control by the label before it
};

/// The text of a window of any length.
String TextOf(HWND window);
/// The selected part of an edit window.
TextRange SelectionOf(HWND edit);
void SelectIn(HWND edit, TextRange range);

}  // namespace runtime::win32
