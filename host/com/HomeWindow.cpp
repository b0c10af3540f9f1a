#include "host/com/HomeWindow.h"

#include "host/com/BackProcessObject.h"
#include "host/com/Guard.h"
#include "host/com/Module.h"

namespace host::com {
namespace {

constexpr wchar_t kHomeWindowClass[] = L"K4TBackProcess.Home";

/// Returns the number of the message that ends an instance. The message is registered, so that no other code in the
/// process uses the number.
UINT EndMessage() {
    static const UINT message = RegisterWindowMessageW(L"K4TBackProcess.EndInstance");
    return message;
}

LRESULT CALLBACK HomeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message != EndMessage()) return DefWindowProcW(window, message, wParam, lParam);
    reinterpret_cast<BackProcessObject*>(lParam)->End();
    return 0;
}

ATOM RegisterHomeWindowClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = HomeProcedure;
    windowClass.hInstance = OwnModule();
    windowClass.lpszClassName = kHomeWindowClass;
    const ATOM registered = RegisterClassExW(&windowClass);
    if (registered == 0) throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    return registered;
}

}  // namespace

void HomeWindowPolicy::Close(HWND window) noexcept {
    if (!DestroyWindow(window)) PostMessageW(window, WM_CLOSE, 0, 0);
}

HomeWindow MakeHomeWindow() {
    static const ATOM windowClass = RegisterHomeWindowClass();
    HomeWindow window(
        CreateWindowExW(0, MAKEINTATOM(windowClass), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, OwnModule(), nullptr));
    if (!window) throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    return window;
}

bool PostEnd(HWND window, BackProcessObject& instance) noexcept {
    return PostMessageW(window, EndMessage(), 0, reinterpret_cast<LPARAM>(&instance)) != FALSE;
}

}  // namespace host::com
