#include "kernel_api/builtin/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <functional>
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

std::uint32_t HashOf(StringView identifier) {
    return static_cast<std::uint32_t>(std::hash<StringView>()(identifier));
}

}  // namespace

TextFile::TextFile(std::string_view bytes, const FaultSink& onFault) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    // No line has more characters than bytes.
    characters_.reserve(bytes.size());
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
    const auto text = Unescape(written);
    if (!text) return LineFault::kUnknownEscape;
    if (!Add(identifier, *text)) return LineFault::kTwice;
    return std::nullopt;
}

bool TextFile::Add(StringView identifier, StringView text) {
    if (2 * (count_ + 1) > slots_.size()) Grow();
    const std::uint32_t hash = HashOf(identifier);
    Slot& slot = slots_[Place(identifier, hash)];
    if (slot.end != 0) return false;
    const auto position = [this] { return static_cast<std::uint32_t>(characters_.size()); };
    slot = {.hash = hash, .identifier = position()};
    characters_ += identifier;
    slot.text = position();
    characters_ += text;
    slot.end = position();
    ++count_;
    return true;
}

void TextFile::Grow() {
    constexpr std::size_t kFewest = 16;
    // The number of slots is a power of two, because Place() uses the number minus 1 as a bit mask.
    const auto former = std::exchange(slots_, std::vector<Slot>(std::max(kFewest, 2 * slots_.size())));
    for (const Slot& slot : former) {
        if (slot.end != 0) slots_[Place(EntryOf(slot).identifier, slot.hash)] = slot;
    }
}

std::size_t TextFile::Place(StringView identifier, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    const auto isPlace = [&](const Slot& slot) {
        return slot.end == 0 || (slot.hash == hash && EntryOf(slot).identifier == identifier);
    };
    std::size_t place = hash & mask;
    while (!isPlace(slots_[place])) place = (place + 1) & mask;
    return place;
}

TextEntry TextFile::EntryOf(const Slot& slot) const {
    const char16_t* const all = characters_.data();
    return {{all + slot.identifier, all + slot.text}, {all + slot.text, all + slot.end}};
}

std::optional<StringView> TextFile::Find(StringView identifier) const {
    if (slots_.empty()) return std::nullopt;
    const StringView wanted = Trimmed(identifier);
    const Slot& slot = slots_[Place(wanted, HashOf(wanted))];
    if (slot.end == 0) return std::nullopt;
    return EntryOf(slot).text;
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
