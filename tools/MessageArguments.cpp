#include "tools/MessageArguments.h"

#include <charconv>
#include <string>

#include "tools/Display.h"

namespace tools {

namespace {

constexpr StringView kWrittenBreak = u"\\n";
constexpr StringView kLineBreak = u"\r\n";

/// None unless all of `digits` is one number.
template <typename Number>
std::optional<Number> Whole(std::string_view digits, int base) {
    Number number{};
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<std::int32_t> Number(std::string_view text) {
    if (!text.starts_with("0x") && !text.starts_with("0X")) return Whole<std::int32_t>(text, 10);
    const auto bits = Whole<std::uint32_t>(text.substr(2), 16);
    if (!bits) return std::nullopt;
    return static_cast<std::int32_t>(*bits);
}

}  // namespace

std::int32_t ReadNumber(StringView text, std::string_view name) {
    const std::optional<std::int32_t> number = Number(runtime::ToUtf8(text));
    if (!number) throw UsageError(std::string(name) + " is not a 32-bit number: '" + Display(text) + "'");
    return *number;
}

String WithLineBreaks(StringView written) {
    String text;
    for (;;) {
        const std::size_t position = written.find(kWrittenBreak);
        text += written.substr(0, position);
        if (position == StringView::npos) return text;
        text += kLineBreak;
        written.remove_prefix(position + kWrittenBreak.size());
    }
}

MessageArguments ReadMessageArguments(const Arguments& arguments) {
    MessageArguments message;
    std::size_t next = 0;
    for (; next + 1 < arguments.size(); next += 2) {
        const String& value = arguments[next + 1];
        if (arguments[next] == u"--flags") {
            message.flags = ReadNumber(value, "--flags");
        } else if (arguments[next] == u"--title") {
            message.title = value;
        } else if (arguments[next] == u"--language") {
            message.languageFolder = value;
        } else {
            break;
        }
    }
    const bool areOptionsEnded = next < arguments.size() && arguments[next] == kEndOfOptions;
    if (areOptionsEnded) ++next;
    const bool isOnlyPromptLeft =
        next + 1 == arguments.size() && (areOptionsEnded || !arguments[next].starts_with(u"--"));
    if (!isOnlyPromptLeft) throw UsageError("takes [--flags N] [--title T] [--language FOLDER] [--] PROMPT");
    message.prompt = WithLineBreaks(arguments[next]);
    return message;
}

}  // namespace tools
