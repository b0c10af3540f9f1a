// Answers a screen reader's request about a window of the runtime. The answer is the system's object for the window,
// with a role and a description that the caller chooses. The window's text is the name of the object.
#pragma once

#include "runtime/Text.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Returns the answer to WM_GETOBJECT for the client object of `window`. `role` is one of ROLE_SYSTEM_*. Returns 0 if
/// the system's accessibility library is missing or creates no object. The caller then uses the default handling.
LRESULT AnswerGetObject(HWND window, WPARAM wParam, LONG role, const String& description);

/// True if a WM_GETOBJECT with this parameter requests a window's client object.
bool AsksForClientObject(LPARAM lParam);

}  // namespace runtime::win32
