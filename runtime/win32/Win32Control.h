// The window of a control. Input controls have derived classes.
#pragma once

#include <memory>

#include "runtime/WindowsPort.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class Win32Window;
class Win32Windows;

/// The meaning of a notification from a control's window.
enum class Notice { kNone, kClicked, kEdited, kChosen };

class Win32Control : public NativeControl {
 public:
    /// Creates the window as a child of the window of `parent`. `id` identifies the new window in WM_COMMAND. Error 7
    /// on failure.
    static std::unique_ptr<Win32Control> Make(Win32Window& parent, Win32Windows& system, const ControlLook& look,
                                              int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& text) override;
    void SetFont(const Font& font) override;
    void SetVisible(bool visible) override;
    void SetFocus() override;
    bool HasFocus() const override;
    void Refresh() override;
    void SetAccessibleName(const String& name) override;

    HWND Window() const { return window_; }
    /// Returns the meaning of a notification. `code` is the notification code of a WM_COMMAND from the window.
    virtual Notice NoticeOf(WORD code);
    /// Returns the index of the item that the user selected. Call it after NoticeOf has returned kChosen.
    virtual int ChosenItem() { return -1; }

 protected:
    struct WindowKind {
        const wchar_t* className;
        DWORD style;
        DWORD extendedStyle;
    };
    Win32Control(Win32Window& parent, Win32Windows& system, ControlKind kind, int id, const WindowKind& windowKind);

 private:
    Win32Control(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);
    static WindowKind KindOfWindow(ControlKind kind);
    void KeepContentUnmirrored();

    Win32Windows& system_;
    const ControlKind kind_;
    Icon icon_;
    HWND window_ = nullptr;
    HWND name_ = nullptr;  ///< a hidden label before the control; screen readers announce it as the control's name
};

/// Returns the text of a window, of any length.
String TextOf(HWND window);
/// Returns the selected part of an edit window.
TextRange SelectionOf(HWND edit);
void SelectIn(HWND edit, TextRange range);
/// Replaces the selected part of an edit window.
void WriteInto(HWND edit, const String& text);

}  // namespace runtime::win32
