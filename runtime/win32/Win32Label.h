// A label's window. It shows any text as given ('&' too), wrapped at its width, and paints only the lines that show, so
// that a long text costs no more than a short one.
#pragma once

#include "runtime/TextLayout.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Label {
 public:
    /// Makes the window class known to the module `instance` while it lives; false when the system refuses.
    static bool RegisterWindowClass(HINSTANCE instance);
    static void UnregisterWindowClass(HINSTANCE instance);
    static const wchar_t* ClassName() { return L"K4TBackProcess.Label"; }

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    explicit Win32Label(HWND window) : window_(window) {}
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void LayOutAgain();
    void Paint();
    void PaintLines(HDC context, const RECT& dirty);

    HWND window_;
    HFONT font_ = nullptr;
    String text_;
    TextLayout layout_;
};

}  // namespace runtime::win32
