// Makes the messages for wrong command lines. Parses numbers.
#include "tools/Usage.h"

#include <charconv>
#include <optional>

#include "tools/Display.h"

namespace tools {

namespace {

/// Returns the number in `digits`. Returns no value if `digits` is not a number of this base, or if the number does not
/// fit.
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

UsageError Missing(std::string_view name) {
    return UsageError((name.starts_with("--") ? "missing option " : "missing argument ") + std::string(name));
}

UsageError UnexpectedArgument(StringView argument) {
    return UsageError("unexpected argument " + Quoted(argument));
}

UnknownOptionError UnknownOption(StringView option) {
    return {"unknown option " + Quoted(option), runtime::ToUtf8(option)};
}

const String& ValueOf(const Arguments& arguments, std::size_t place) {
    if (place + 1 == arguments.size()) throw UsageError("option " + Quoted(arguments[place]) + " requires a value");
    return arguments[place + 1];
}

void RequireAtMost(std::size_t max, const Arguments& arguments) {
    if (arguments.size() > max) throw UnexpectedArgument(arguments[max]);
}

std::int64_t ReadWhole(StringView text, std::string_view name, std::int64_t least, std::int64_t greatest) {
    const auto number = Whole<std::int64_t>(runtime::ToUtf8(text), 10);
    if (number && *number >= least && *number <= greatest) return *number;
    throw UsageError(std::string(name) + " must be a whole number from " + std::to_string(least) + " to " +
                     std::to_string(greatest) + ", not " + Quoted(text));
}

std::int32_t ReadNumber(StringView text, std::string_view name) {
    if (const std::optional<std::int32_t> number = Number(runtime::ToUtf8(text))) return *number;
    throw UsageError(std::string(name) +
                     " must be a number from -2147483648 to 2147483647, or from 0x0 to 0xFFFFFFFF, not " +
                     Quoted(text));
}

}  // namespace tools
