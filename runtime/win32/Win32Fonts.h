// The fonts of controls. Each font is created once and kept, so that loading a form again creates no font.
#pragma once

#include <map>
#include <tuple>

#include "runtime/Font.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class Win32Fonts {
 public:
    /// The stock font for user interfaces if the system cannot create `font`. The handle is valid as long as this
    /// object.
    HFONT Get(const Font& font);

 private:
    using Key = std::tuple<String, float, std::int16_t, bool>;
    std::map<Key, GdiFont> fonts_;
};

}  // namespace runtime::win32
