#include "runtime/Text.h"

#include <algorithm>
#include <cstddef>

namespace runtime {
namespace {

constexpr char16_t kBlank = u' ';
constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::string& bytes, char32_t c) {
    const auto put = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

void AppendUtf16(String& text, char32_t c) {
    if (c < 0x10000) {
        text.push_back(static_cast<char16_t>(c));
        return;
    }
    text.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

struct Decoded {
    char32_t character;
    std::size_t length;  ///< number of bytes read
};

/// A decoded lead byte: the length of its sequence in bytes (0 if the byte is not a lead byte), its bits of the code
/// point, and the smallest code point that needs a sequence of this length.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t smallest;
};

Lead ClassifyLead(unsigned char lead) {
    if (lead < 0x80) return {1, lead, 0};
    if ((lead & 0xE0) == 0xC0) return {2, static_cast<char32_t>(lead & 0x1F), 0x80};
    if ((lead & 0xF0) == 0xE0) return {3, static_cast<char32_t>(lead & 0x0F), 0x800};
    if ((lead & 0xF8) == 0xF0) return {4, static_cast<char32_t>(lead & 0x07), 0x10000};
    return {0, 0, 0};
}

Decoded DecodeUtf8(std::string_view bytes) {
    const Lead lead = ClassifyLead(static_cast<unsigned char>(bytes[0]));
    if (lead.length == 0 || lead.length > bytes.size()) return {kReplacement, 1};
    char32_t c = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0) != 0x80) return {kReplacement, 1};
        c = (c << 6) | (byte & 0x3F);
    }
    const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    if (c < lead.smallest || c > 0x10FFFF || isSurrogate) return {kReplacement, 1};
    return {c, lead.length};
}

}  // namespace

String NulsAsBlanks(StringView text) {
    String shown(text);
    std::replace(shown.begin(), shown.end(), u'\0', u' ');
    return shown;
}

String Trim(StringView text) {
    const auto first = text.find_first_not_of(kBlank);
    if (first == StringView::npos) return {};
    return String(text.substr(first, text.find_last_not_of(kBlank) - first + 1));
}

String RTrim(StringView text) {
    return String(text.substr(0, text.find_last_not_of(kBlank) + 1));
}

std::string ToUtf8(StringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
        } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
            c = kReplacement;
        }
        AppendUtf8(bytes, c);
    }
    return bytes;
}

String FromUtf8(std::string_view bytes) {
    String text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Decoded next = DecodeUtf8(bytes);
        AppendUtf16(text, next.character);
        bytes.remove_prefix(next.length);
    }
    return text;
}

std::optional<String> FromStrictUtf8(std::string_view bytes) {
    String text = FromUtf8(bytes);
    // A U+FFFD in the text is either encoded in `bytes` or replaces an invalid byte. If it replaces a byte, the text
    // does not convert back to `bytes`.
    const bool isReplaced = text.find(static_cast<char16_t>(kReplacement)) != String::npos;
    if (isReplaced && ToUtf8(text) != bytes) return std::nullopt;
    return text;
}

String FromAscii(std::string_view ascii) {
    return String(ascii.begin(), ascii.end());
}

}  // namespace runtime
