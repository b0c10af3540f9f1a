// Includes windows.h, and converts between wchar_t and char16_t. The runtime's other files include windows.h through
// this file.
#pragma once

#include <windows.h>

#include <cstddef>

#include "runtime/Text.h"

namespace runtime::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the platform's wide characters are UTF-16 units");

/// Returns `text` in the type that the Windows functions require. `text` must end with a NUL if the function requires a
/// NUL.
inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* Wide(const String& text) {
    return Wide(text.c_str());
}
inline wchar_t* Wide(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}

inline const char16_t* Utf16(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}
inline String ToString(const wchar_t* text, std::size_t length) {
    return String(Utf16(text), length);
}
inline String ToString(const wchar_t* text) {
    return String(Utf16(text));
}

}  // namespace runtime::win32
