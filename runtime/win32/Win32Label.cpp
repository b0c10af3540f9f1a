#include "runtime/win32/Win32Label.h"

#include <ole2.h>
// Include this header after ole2.h, because the header needs ole2.h.
#include <oleacc.h>

#include <algorithm>
#include <memory>

#include "runtime/win32/AccessibleWindow.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/GdiMeasure.h"

namespace runtime::win32 {

bool Win32Label::RegisterWindowClass(HINSTANCE instance) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW | CS_PARENTDC;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = ClassName();
    return RegisterClassExW(&windowClass) != 0;
}

void Win32Label::UnregisterWindowClass(HINSTANCE instance) {
    UnregisterClassW(ClassName(), instance);
}

LRESULT CALLBACK Win32Label::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Callback::Guard(LRESULT{0}, [&]() -> LRESULT {
        auto* self = reinterpret_cast<Win32Label*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_NCCREATE && !self) {
            self = new Win32Label(window);  // WM_NCDESTROY deletes this object
            SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        }
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            const std::unique_ptr<Win32Label> owned(self);
            return DefWindowProcW(window, message, wParam, lParam);
        }
        return self ? self->OnMessage(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
    });
}

LRESULT Win32Label::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT:
            text_ = lParam ? ToString(reinterpret_cast<const wchar_t*>(lParam)) : String();
            LayOutAgain();
            // Pass the text to the system as well. Screen readers read the system's copy.
            return DefWindowProcW(window_, message, wParam, lParam);
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            LayOutAgain();
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SIZE:
            LayOutAgain();
            return 0;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_GETOBJECT: {
            const LRESULT answer =
                AsksForClientObject(lParam) ? AnswerGetObject(window_, wParam, ROLE_SYSTEM_STATICTEXT, {}) : 0;
            return answer != 0 ? answer : DefWindowProcW(window_, message, wParam, lParam);
        }
        default:
            return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void Win32Label::LayOutAgain() {
    if (!font_) return;
    RECT client{};
    GetClientRect(window_, &client);
    GdiMeasure measure(font_);
    layout_ = LayOut(text_, static_cast<int>(client.right), measure);
    InvalidateRect(window_, nullptr, FALSE);
}

void Win32Label::Paint() {
    PAINTSTRUCT paint{};
    const HDC context = BeginPaint(window_, &paint);
    if (!context) return;
    PaintLines(context, paint.rcPaint);
    EndPaint(window_, &paint);
}

void Win32Label::PaintLines(HDC context, const RECT& dirty) {
    // The form sets the colours of its labels.
    auto* const brush = reinterpret_cast<HBRUSH>(SendMessageW(
        GetParent(window_), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(window_)));
    FillRect(context, &dirty, brush);
    if (layout_.lines.empty() || !font_) return;
    const int lineHeight = std::max(1, layout_.height / static_cast<int>(layout_.lines.size()));
    const HGDIOBJ former = SelectObject(context, font_);
    const bool isRightToLeft = (GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_RTLREADING) != 0;
    SetTextAlign(context, isRightToLeft ? TA_RIGHT | TA_RTLREADING : TA_LEFT);
    RECT client{};
    GetClientRect(window_, &client);
    const int start = isRightToLeft ? static_cast<int>(client.right) : 0;
    const auto first = static_cast<std::size_t>(std::max(0L, dirty.top / lineHeight));
    for (std::size_t i = first; i < layout_.lines.size(); ++i) {
        const int top = static_cast<int>(i) * lineHeight;
        if (top >= dirty.bottom) break;
        const StringView line = layout_.Line(i);
        ExtTextOutW(context, start, top, ETO_CLIPPED, &dirty, Wide(line.data()), static_cast<UINT>(line.size()),
                    nullptr);
    }
    SelectObject(context, former);
}

}  // namespace runtime::win32
