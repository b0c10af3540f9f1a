// A window of the home thread that is never shown. When another thread releases the last reference of an instance, the
// instance is posted to this window, because only the home thread may end the instance and the component's windows.
#pragma once

#include "runtime/win32/Handle.h"

namespace host::com {

class BackProcessObject;

struct HomeWindowPolicy {
    using Type = HWND;
    static Type Invalid() noexcept { return nullptr; }
    /// Destroys the window. On another thread, posts a request to close it.
    static void Close(Type window) noexcept;
};
using HomeWindow = runtime::win32::UniqueHandle<HomeWindowPolicy>;

/// Makes the window on the calling thread. Throws the HRESULT of a system error.
HomeWindow MakeHomeWindow();

/// Makes the window's thread end `instance`, which must exist until then. False if the message cannot be posted.
bool PostEnd(HWND window, BackProcessObject& instance) noexcept;

}  // namespace host::com
