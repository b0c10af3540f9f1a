#include "runtime/win32/Win32Windows.h"

#include <iterator>

#include "runtime/Error.h"
#include "runtime/Screen.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Window.h"

namespace runtime::win32 {
namespace {

/// The system's shapes for the classic runtime's pointer numbers 0..15.
LPCWSTR SystemPointer(std::int16_t shape) {
    const LPCWSTR kShapes[] = {IDC_ARROW,    IDC_ARROW,       IDC_CROSS,    IDC_IBEAM,  IDC_ICON,    IDC_SIZEALL,
                               IDC_SIZENESW, IDC_SIZENS,      IDC_SIZENWSE, IDC_SIZEWE, IDC_UPARROW, IDC_WAIT,
                               IDC_NO,       IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
    const bool known = shape >= 0 && static_cast<std::size_t>(shape) < std::size(kShapes);
    return known ? kShapes[shape] : IDC_ARROW;
}

}  // namespace

Win32Windows::~Win32Windows() {
    if (classRegistered_) UnregisterClassW(ClassName(), instance_);
}

const wchar_t* Win32Windows::ClassName() const {
    return L"K4TBackProcess.Form";
}

void Win32Windows::RegisterWindowClass() {
    if (classRegistered_) return;
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_OWNDC | CS_DBLCLKS;
    windowClass.lpfnWndProc = Win32Window::Procedure;
    windowClass.hInstance = instance_;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = ClassName();
    if (!RegisterClassExW(&windowClass)) throw Error(kOutOfMemory);
    classRegistered_ = true;
}

std::unique_ptr<NativeWindow> Win32Windows::MakeWindow(const WindowDesign& design, WindowEvents& events) {
    RegisterWindowClass();
    return Callback::Into([&] { return std::make_unique<Win32Window>(*this, design, events); });
}

Size Win32Windows::OuterSize(Size inner, BorderStyle border) {
    RECT outer = ToPixels(Rect{0, 0, inner.width, inner.height});
    AdjustWindowRectEx(&outer, Win32Window::StyleOf(border), FALSE, 0);
    return ToTwips(outer).Size();
}

Size Win32Windows::ScreenSize() {
    return {ToTwips(GetSystemMetrics(SM_CXSCREEN)), ToTwips(GetSystemMetrics(SM_CYSCREEN))};
}

void Win32Windows::SetMousePointer(std::int16_t shape) {
    const bool wasDefault = pointer_ == kDefaultPointer;
    pointer_ = shape;
    if (shape == kDefaultPointer) {
        if (!wasDefault) SetCursor(pointerBefore_);
        return;
    }
    const HCURSOR before = SetCursor(LoadCursorW(nullptr, SystemPointer(shape)));
    if (wasDefault) pointerBefore_ = before;
}

bool Win32Windows::ShowPointer() const {
    if (pointer_ == kDefaultPointer) return false;
    SetCursor(LoadCursorW(nullptr, SystemPointer(pointer_)));
    return true;
}

std::uint32_t Win32Windows::RegisterMessage(StringView name) {
    return RegisterWindowMessageW(Wide(String(name)));
}

void Win32Windows::DoEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Callback::Into([&] {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        });
    }
}

}  // namespace runtime::win32
