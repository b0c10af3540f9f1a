#include "tests/windows/OwnerWindow.h"

#include <utility>

namespace tests {
namespace {

constexpr wchar_t kClass[] = L"tests.Owner";

}  // namespace

OwnerWindow::OwnerWindow(Listener listener, SIZE size) : listener_(std::move(listener)) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    handle_ = CreateWindowExW(0, kClass, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, static_cast<int>(size.cx),
                              static_cast<int>(size.cy), nullptr, nullptr, windowClass.hInstance, nullptr);
    SetForegroundWindow(handle_);
    SetActiveWindow(handle_);
    SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

OwnerWindow::~OwnerWindow() {
    DestroyWindow(handle_);
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
}

LRESULT CALLBACK OwnerWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto* const owner = reinterpret_cast<const OwnerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (owner) owner->listener_(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tests
