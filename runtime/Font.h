// Describes the font of a form or a control as a plain value. A back end creates the system's font for the value.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace runtime {

struct Font {
    String name = u"MS Sans Serif";
    /// In points (1/72 inch).
    float size = 8.25F;
    /// Windows character set: for example 0 western, 1 the system's default, 128 Japanese, 134 simplified Chinese.
    std::int16_t charset = 0;
    bool bold = false;
    bool operator==(const Font&) const = default;
};

}  // namespace runtime
