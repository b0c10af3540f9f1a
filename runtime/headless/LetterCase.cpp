#include "runtime/headless/LetterCase.h"

#include <algorithm>

namespace runtime::headless {
namespace {

/// The lower-case letters from `first` to `last`. The code of a capital is the code of the small letter minus
/// `distance`.
struct Range {
    char16_t first;
    char16_t last;
    int distance;
};

constexpr Range kLetters[] = {
    {u'a', u'z', 0x20},
    {u'\u00E0', u'\u00F6', 0x20},
    {u'\u00F8', u'\u00FE', 0x20},
    {u'\u00FF', u'\u00FF', 0xFF - 0x178},
    {u'\u03AC', u'\u03AC', 0x3AC - 0x386},
    {u'\u03AD', u'\u03AF', 0x3AD - 0x388},
    {u'\u03B1', u'\u03C1', 0x20},
    {u'\u03C3', u'\u03CB', 0x20},
    {u'\u03CC', u'\u03CC', 0x3CC - 0x38C},
    {u'\u03CD', u'\u03CE', 0x3CD - 0x38E},
    {u'\u0430', u'\u044F', 0x20},
    {u'\u0450', u'\u045F', 0x50},
};

String Mapped(StringView text, char16_t (*map)(char16_t)) {
    String result(text);
    std::transform(result.begin(), result.end(), result.begin(), map);
    return result;
}

}  // namespace

char16_t UpperCase(char16_t c) {
    for (const Range& range : kLetters) {
        if (c >= range.first && c <= range.last) return static_cast<char16_t>(c - range.distance);
    }
    return c;
}

char16_t LowerCase(char16_t c) {
    for (const Range& range : kLetters) {
        if (c >= range.first - range.distance && c <= range.last - range.distance) {
            return static_cast<char16_t>(c + range.distance);
        }
    }
    return c;
}

String UpperCase(StringView text) {
    return Mapped(text, UpperCase);
}

String LowerCase(StringView text) {
    return Mapped(text, LowerCase);
}

}  // namespace runtime::headless
