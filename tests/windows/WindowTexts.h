// Reads the texts and fonts of windows. Also reads the names that windows report to screen readers.
#pragma once

#include <string_view>

#include "runtime/Text.h"
#include "runtime/win32/Win32Control.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tests {

bool IsClass(HWND window, std::wstring_view name);

/// Returns the window's caption, or the content of an input control. The text may have any length.
using runtime::win32::TextOf;

/// Returns the window's font. The caller must not delete the font.
HFONT FontOf(HWND window);
/// Returns the font's description. Fails the test if the window has no font.
LOGFONTW FontDescriptionOf(HWND window);

/// Returns the name that a screen reader receives. Returns "(no object)" if the window has no accessible object, and
/// "(no name)" if the object has no name.
runtime::String AccessibleNameOf(HWND window);

}  // namespace tests
