// A label's window. It breaks its text at the label's width by the rules in TextLayout.h. It paints only the visible
// lines, so that a long text is painted as fast as a short text.
#pragma once

#include "runtime/TextLayout.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Label {
 public:
    /// Registers the window class for the DLL or program `instance`; false on failure.
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
