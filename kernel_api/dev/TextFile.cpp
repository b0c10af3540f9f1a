#include "kernel_api/dev/TextFile.h"

#include <algorithm>
#include <optional>

namespace kernel_api::dev {
namespace {

using runtime::String;
using runtime::StringView;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kAround = " \t\r";
constexpr char32_t kReplacement = 0xFFFD;

std::string_view TrimAround(std::string_view text) {
    const auto first = text.find_first_not_of(kAround);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kAround) - first + 1);
}

/// None for bytes that are not UTF-8.
std::optional<String> Decode(std::string_view bytes) {
    String text = runtime::FromUtf8(bytes);
    // A replacement character that the bytes do not spell out stands for bytes that are not UTF-8.
    const bool isReplaced = text.find(static_cast<char16_t>(kReplacement)) != String::npos;
    if (isReplaced && runtime::ToUtf8(text) != bytes) return std::nullopt;
    return text;
}

/// None for an unknown escape, and for a backslash at the end.
std::optional<String> Unescape(StringView text) {
    String plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\') {
            plain.push_back(text[i]);
            continue;
        }
        if (++i == text.size()) return std::nullopt;
        switch (text[i]) {
            case u'n':
                plain += u"\r\n";
                break;
            case u't':
                plain += u'\t';
                break;
            case u's':
                plain += u' ';
                break;
            case u'\\':
                plain += u'\\';
                break;
            default:
                return std::nullopt;
        }
    }
    return plain;
}

}  // namespace

TextFile::TextFile(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        if (!Take(TrimAround(bytes.substr(0, end)))) ++skippedLines_;
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
}

bool TextFile::Take(std::string_view line) {
    if (line.empty() || line.front() == '#') return true;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    const auto identifier = Decode(TrimAround(line.substr(0, equals)));
    const auto escaped = Decode(TrimAround(line.substr(equals + 1)));
    if (!identifier || identifier->empty() || !escaped) return false;
    auto text = Unescape(*escaped);
    return text && texts_.try_emplace(*identifier, std::move(*text)).second;
}

const String* TextFile::Find(StringView identifier) const {
    const auto found = texts_.find(runtime::Trim(identifier));
    return found == texts_.end() ? nullptr : &found->second;
}

}  // namespace kernel_api::dev
