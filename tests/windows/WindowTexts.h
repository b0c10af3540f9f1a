// What windows report about themselves to programs and screen readers, and their fonts.
#pragma once

#include <string_view>

#include "runtime/Text.h"
#include "runtime/win32/Win32Control.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tests {

bool IsClass(HWND window, std::wstring_view name);

/// The caption, or the content of an input control, of any length.
using runtime::win32::TextOf;

/// The window's font. The window owns it.
HFONT FontOf(HWND window);
/// The font's description. Fails the test if the window has no font.
LOGFONTW FontDescriptionOf(HWND window);

/// The name that a screen reader receives: "(no object)" without an accessible object, "(no name)" without a name.
runtime::String AccessibleNameOf(HWND window);

}  // namespace tests
