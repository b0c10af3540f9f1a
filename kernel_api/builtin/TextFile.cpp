#include "kernel_api/builtin/TextFile.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "kernel_api/builtin/Lines.h"

namespace kernel_api::builtin {
namespace {

using runtime::String;
using runtime::StringView;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Decodes UTF-8. Returns no value if the bytes are not UTF-8 or contain a NUL.
std::optional<String> Decode(std::string_view bytes) {
    if (bytes.find('\0') != std::string_view::npos) return std::nullopt;
    return runtime::FromStrictUtf8(bytes);
}

/// Replaces the escapes. Returns no value for an unknown escape, and for a backslash at the end.
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

TextFile::TextFile(std::string_view bytes, const FaultSink& onFault) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    for (std::size_t number = 1; !bytes.empty(); ++number) {
        const auto fault = Take(Trimmed(TakeLine(bytes)));
        if (!fault) continue;
        ++skippedLines_;
        if (onFault) onFault(number, *fault);
    }
}

std::optional<LineFault> TextFile::Take(std::string_view line) {
    if (line.empty() || line.front() == '#') return std::nullopt;
    const auto decoded = Decode(line);
    if (!decoded) return LineFault::kNotUtf8;
    const std::size_t equals = decoded->find(u'=');
    if (equals == String::npos) return LineFault::kNoEqualsSign;
    const StringView identifier = Trimmed(StringView(*decoded).substr(0, equals));
    if (identifier.empty()) return LineFault::kNoIdentifier;
    const StringView written = Trimmed(StringView(*decoded).substr(equals + 1));
    if (written.empty()) return LineFault::kNoText;
    auto text = Unescape(written);
    if (!text) return LineFault::kUnknownEscape;
    if (!texts_.try_emplace(String(identifier), std::move(*text)).second) return LineFault::kTwice;
    return std::nullopt;
}

const String* TextFile::Find(StringView identifier) const {
    const auto found = texts_.find(Trimmed(identifier));
    return found == texts_.end() ? nullptr : &found->second;
}

String EscapeText(StringView text) {
    String escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isAtEnd = i == 0 || i + 1 == text.size();
        if (text[i] == u'\\') {
            escaped += u"\\\\";
        } else if (text[i] == u'\t') {
            escaped += u"\\t";
        } else if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            escaped += u"\\n";
            ++i;
        } else if (text[i] == u'\r' || text[i] == u'\n') {
            escaped += u"\\n";
        } else if (text[i] == u' ' && isAtEnd) {
            escaped += u"\\s";
        } else {
            escaped += text[i];
        }
    }
    return escaped;
}

}  // namespace kernel_api::builtin
