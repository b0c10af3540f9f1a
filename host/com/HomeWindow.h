// A window of the home thread that is never shown. An instance whose last reference was released on another thread is
// posted to it, because only the home thread may end the instance and the component's windows.
#pragma once

#include "runtime/win32/Handle.h"

namespace host::com {

class BackProcessObject;

struct HomeWindowPolicy {
    using Type = HWND;
    static Type Invalid() noexcept { return nullptr; }
    /// On another thread the window is asked to close itself.
    static void Close(Type window) noexcept;
};
using HomeWindow = runtime::win32::UniqueHandle<HomeWindowPolicy>;

/// Makes the window on the calling thread. Throws the system's HRESULT.
HomeWindow MakeHomeWindow();

/// Has the window's thread end `instance`, which must stay alive until then. False when the window does not exist.
bool PostEnd(HWND window, BackProcessObject& instance) noexcept;

}  // namespace host::com
