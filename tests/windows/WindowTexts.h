// What windows say of themselves, to programs and to screen readers, and the font they say it in.
#pragma once

#include <string_view>

#include "runtime/Text.h"
#include "runtime/win32/Win32Control.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tests {

bool IsClass(HWND window, std::wstring_view name);

/// The caption, or what an input control holds; of any length.
using runtime::win32::TextOf;

/// The window keeps it.
HFONT FontOf(HWND window);
/// The font's description; fails the test when there is none.
LOGFONTW FontDescriptionOf(HWND window);

/// What a screen reader is told; "(no object)" or "(no name)" when it is told nothing.
runtime::String AccessibleNameOf(HWND window);

}  // namespace tests
