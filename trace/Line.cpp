#include "trace/Line.h"

#include <algorithm>
#include <iterator>

#include "runtime/Error.h"

namespace trace {
namespace {

constexpr int kHexBase = 16;
constexpr std::size_t kHresultDigits = 8;
constexpr std::int64_t kMicrosecondsInMillisecond = 1000;
constexpr std::size_t kDecimals = 3;

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// True for controls, line and direction marks, and the bracket that ends a value.
bool NeedsEscape(char16_t unit) {
    const bool isControl = unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
    const bool isMark = (unit >= 0x200E && unit <= 0x200F) || (unit >= 0x2028 && unit <= 0x202E) ||
                        (unit >= 0x2066 && unit <= 0x2069) || unit == 0xFEFF;
    return isControl || isMark || unit == u']';
}

/// Returns the number of units of the first character of `text`; 0 if the first unit must be escaped.
std::size_t PlainLength(StringView text) {
    if (IsHighSurrogate(text[0])) return text.size() > 1 && IsLowSurrogate(text[1]) ? 2 : 0;
    if (IsLowSurrogate(text[0]) || NeedsEscape(text[0])) return 0;
    return text.starts_with(u"\\u{") ? 0 : 1;
}

std::string HexDigits(std::uint32_t value, std::size_t width) {
    std::string digits;
    for (; value != 0; value /= kHexBase) digits.push_back("0123456789ABCDEF"[value % kHexBase]);
    digits.resize(std::max(digits.size(), width), '0');
    std::reverse(digits.begin(), digits.end());
    return digits;
}

void AppendEscaped(std::string& line, StringView text) {
    while (!text.empty()) {
        std::size_t plain = 0;
        for (std::size_t length = 1; length != 0 && plain < text.size(); plain += length) {
            length = PlainLength(text.substr(plain));
        }
        line += runtime::ToUtf8(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) return;
        line.append("\\u{").append(HexDigits(text[0], 1)).append("}");
        text.remove_prefix(1);
    }
}

void AppendName(std::string& line, std::string_view name) {
    line.append(" ").append(name).append("=[");
}

/// Returns at most kMaxCharacters of `text`, without half a surrogate pair at the end.
StringView Cut(StringView text) {
    if (text.size() <= kMaxCharacters) return text;
    const bool splitsPair = IsHighSurrogate(text[kMaxCharacters - 1]) && IsLowSurrogate(text[kMaxCharacters]);
    return text.substr(0, splitsPair ? kMaxCharacters - 1 : kMaxCharacters);
}

}  // namespace

Line& Line::Text(std::string_view name, StringView value) noexcept {
    return Beginning(name, value, value.size(), "characters");
}

Line& Line::Beginning(std::string_view name, StringView beginning, std::size_t length,
                      std::string_view units) noexcept {
    return Append([&] {
        const StringView shown = Cut(beginning);
        AppendName(text_, name);
        AppendEscaped(text_, shown);
        text_ += ']';
        const bool isCut = shown.size() < beginning.size() || beginning.size() < length;
        if (isCut) text_.append(" cut from ").append(std::to_string(length)).append(" ").append(units);
    });
}

Line& Line::None(std::string_view name) noexcept {
    return Append([&] { text_.append(" ").append(name).append("="); });
}

Line& Line::Number(std::string_view name, std::int64_t value) noexcept {
    return Append([&] {
        AppendName(text_, name);
        text_.append(std::to_string(value)).append("]");
    });
}

Line& Line::Hex(std::string_view name, std::uint32_t value) noexcept {
    return Append([&] {
        AppendName(text_, name);
        text_.append("0x").append(HexDigits(value, kHresultDigits)).append("]");
    });
}

Line& Line::Time(std::chrono::steady_clock::duration time) noexcept {
    return Append([&] {
        const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
        const std::string decimals = std::to_string(microseconds % kMicrosecondsInMillisecond);
        AppendName(text_, "ms");
        text_.append(std::to_string(microseconds / kMicrosecondsInMillisecond)).append(".");
        text_.append(kDecimals - decimals.size(), '0').append(decimals).append("]");
    });
}

Line& Line::Error(const std::exception& error) noexcept {
    const auto* const known = dynamic_cast<const runtime::Error*>(&error);
    if (known) return Number("error", known->Number()).Text("text", known->Description());
    return Append([&] { Text("error", runtime::FromUtf8(error.what())); });
}

Line& Line::Error(const std::exception_ptr& error) noexcept {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& known) {
        return Error(known);
    } catch (...) {
        return Text("error", u"unknown");
    }
}

void Line::WriteTo(Output& output) const noexcept {
    if (isLost_) {
        output.CountLost();
    } else {
        output.Write(text_);
    }
}

}  // namespace trace
