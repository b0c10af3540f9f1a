#include "runtime/headless/PlainLocale.h"

#include <algorithm>
#include <iterator>

#include "runtime/headless/LetterCase.h"

namespace runtime::headless {
namespace {

/// Code page 1252 from 0x80 to 0x9F. Every other byte equals its character.
constexpr char16_t kFrom80[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(std::size(kFrom80) == 0x20);

char AnsiByte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const auto* const found = std::find(std::begin(kFrom80), std::end(kFrom80), c);
    if (found == std::end(kFrom80)) return '?';
    return static_cast<char>(0x80 + (found - std::begin(kFrom80)));
}

char16_t Character(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 && value < 0xA0 ? kFrom80[value - 0x80] : value;
}

}  // namespace

std::string PlainLocale::ToAnsi(StringView text) {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), AnsiByte);
    return bytes;
}

String PlainLocale::FromAnsi(std::string_view bytes) {
    String text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), Character);
    return text;
}

std::optional<std::int16_t> PlainLocale::CharsetOf(std::int32_t lcid) {
    const auto found = charsets.find(lcid);
    if (found == charsets.end()) return std::nullopt;
    return found->second;
}

String PlainLocale::UpperCase(StringView text) {
    return headless::UpperCase(text);
}

String PlainLocale::LowerCase(StringView text) {
    return headless::LowerCase(text);
}

}  // namespace runtime::headless
