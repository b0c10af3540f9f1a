// Small pictures drawn in the source: one character a pixel, a hexadecimal digit for one of the sixteen classic
// colours, anything else for transparent.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace runtime {

struct Picture {
    /// Rows from the top, all of one length.
    std::span<const std::string_view> rows;

    int Width() const { return rows.empty() ? 0 : static_cast<int>(rows.front().size()); }
    int Height() const { return static_cast<int>(rows.size()); }
};

/// 0x00RRGGBB of a picture's character; none for transparent.
std::optional<std::uint32_t> PictureColour(char pixel);

}  // namespace runtime
