// Creates the fonts of controls. Each font is created once and kept, so that loading a form again creates no font.
#pragma once

#include <map>
#include <tuple>

#include "runtime/Font.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class Win32Fonts {
 public:
    /// Returns the system's font for `font`, at the dots per inch that ScreenDpi returns on the calling thread. If the
    /// system cannot create the font, returns the stock font for user interfaces. The handle is valid as long as this
    /// object exists.
    HFONT Get(const Font& font);

 private:
    using Key = std::tuple<String, float, std::int16_t, bool, int>;
    std::map<Key, GdiFont> fonts_;
};

}  // namespace runtime::win32
