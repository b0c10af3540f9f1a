// Replaces ASCII control characters with visible characters, and quotes texts.
#include "tools/Display.h"

namespace tools {

namespace {

constexpr char16_t kFirstPicture = 0x2400;
constexpr char16_t kPictureOfDelete = 0x2421;
constexpr char16_t kFirstLowSurrogate = 0xDC00;
constexpr char16_t kLastLowSurrogate = 0xDFFF;

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

std::string Quoted(runtime::StringView text) {
    constexpr std::size_t kMaxLength = 200;
    const bool isCut = text.size() > kMaxLength;
    const bool splitsPair = isCut && text[kMaxLength] >= kFirstLowSurrogate && text[kMaxLength] <= kLastLowSurrogate;
    std::string quoted(1, '\'');
    quoted += Display(isCut ? text.substr(0, splitsPair ? kMaxLength - 1 : kMaxLength) : text);
    return quoted += isCut ? "…'" : "'";
}

}  // namespace tools
