// Makes a window of the home thread that is never shown. When another thread releases the last reference of an
// instance, it posts the instance to this window, because only the home thread may end the instance and the component's
// windows.
#pragma once

#include "runtime/win32/Handle.h"

namespace host::com {

class BackProcessObject;

struct HomeWindowPolicy {
    using Type = HWND;
    static Type Invalid() noexcept { return nullptr; }
    /// Destroys the window. If the caller is another thread, posts a request to close the window.
    static void Close(Type window) noexcept;
};
using HomeWindow = runtime::win32::UniqueHandle<HomeWindowPolicy>;

/// Makes the window on the calling thread. On a system error, throws its HRESULT.
HomeWindow MakeHomeWindow();

/// Makes the window's thread end `instance`. The instance must exist until then. False if the message cannot be posted.
bool PostEnd(HWND window, BackProcessObject& instance) noexcept;

}  // namespace host::com
