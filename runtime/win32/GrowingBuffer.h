// Reads texts of any length from Windows functions that write into a caller's buffer.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Calls `fill(buffer, capacity)` with larger buffers until the text fits. If the text fits, `fill` returns its length.
/// If the text does not fit, `fill` returns the capacity or more. On failure, `fill` returns 0, and the result is
/// empty.
template <typename Fill>
String FillGrowing(Fill&& fill) {
    String text(MAX_PATH, u'\0');
    for (;;) {
        const auto capacity = static_cast<DWORD>(text.size());
        const DWORD length = fill(Wide(text.data()), capacity);
        if (length < capacity) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2 > length ? text.size() * 2 : length + std::size_t{1});
    }
}

}  // namespace runtime::win32
