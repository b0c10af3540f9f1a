// The fonts that controls show their texts with: each made once and kept, so that forms come and go without making any.
#pragma once

#include <map>
#include <tuple>

#include "runtime/Font.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class Win32Fonts {
 public:
    /// The system's own font when it cannot make this one. Valid as long as this object.
    HFONT Get(const Font& font);

 private:
    using Key = std::tuple<String, float, std::int16_t, bool>;
    std::map<Key, GdiFont> fonts_;
};

}  // namespace runtime::win32
