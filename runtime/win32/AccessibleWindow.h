// What a screen reader gets for a window of the runtime: the system's object for that window, with its text as name,
// another role and a description.
#pragma once

#include "runtime/Text.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// The answer to WM_GETOBJECT for the client object of `window`. `role` is one of ROLE_SYSTEM_*. 0, which makes the
/// system use its own object, if the system's library is missing.
LRESULT AnswerGetObject(HWND window, WPARAM wParam, LONG role, const String& description);

/// True if a WM_GETOBJECT with this parameter asks for a window's client object.
bool AsksForClientObject(LPARAM lParam);

}  // namespace runtime::win32
