// Control characters made visible.
#include "tools/Display.h"

namespace tools {

namespace {

constexpr char16_t kFirstPicture = 0x2400;
constexpr char16_t kPictureOfDelete = 0x2421;

char16_t Visible(char16_t unit) {
    if (unit < 0x20) return static_cast<char16_t>(kFirstPicture + unit);
    return unit == 0x7F ? kPictureOfDelete : unit;
}

}  // namespace

std::string Display(runtime::StringView text) {
    runtime::String visible(text);
    for (char16_t& unit : visible) unit = Visible(unit);
    return runtime::ToUtf8(visible);
}

}  // namespace tools
