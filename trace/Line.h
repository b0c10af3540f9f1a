// Builds one line of a trace. The line starts with the name of the event. NAME=[VALUE] follows for each value.
//
// A value cannot end its line or its brackets. A control character, a line or direction mark, a lone surrogate and "]"
// are written as \u{HEX}. A backslash is normally unchanged, so that paths can be read and searched. If the backslash
// would look like the start of an escape, it is written as \u{5C}. Therefore every value can be read back.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "runtime/Text.h"
#include "trace/Output.h"

namespace trace {

using runtime::String;
using runtime::StringView;

/// A longer value is cut to this number of characters. Its length follows the brackets.
constexpr std::size_t kMaxCharacters = 256;

/// The functions do not throw. If memory is short, the line is lost, and the output counts the lost line. A line cannot
/// be copied, because a copy could throw.
class Line {
 public:
    explicit Line(std::string_view event) noexcept {
        Append([&] { text_ = event; });
    }
    Line(Line&&) noexcept = default;

    Line& Text(std::string_view name, StringView value) noexcept;
    /// Adds a value of `length` units. `beginning` has at least kMaxCharacters of the value, or the whole value.
    Line& Beginning(std::string_view name, StringView beginning, std::size_t length, std::string_view units) noexcept;
    /// Adds a missing value: NAME= without brackets.
    Line& None(std::string_view name) noexcept;
    Line& Number(std::string_view name, std::int64_t value) noexcept;
    /// Adds a value as 0x and eight digits.
    Line& Hex(std::string_view name, std::uint32_t value) noexcept;
    /// Adds a duration in milliseconds, as ms=[12.345].
    Line& Time(std::chrono::steady_clock::duration time) noexcept;
    /// Adds the number and the description of a runtime::Error, or the text of another exception.
    Line& Error(const std::exception& error) noexcept;
    Line& Error(const std::exception_ptr& error) noexcept;

    void WriteTo(Output& output) const noexcept;

 private:
    template <typename Change>
    Line& Append(Change&& change) noexcept {
        try {
            if (!isLost_) change();
        } catch (...) {
            isLost_ = true;
        }
        return *this;
    }

    std::string text_;  ///< UTF-8
    bool isLost_ = false;
};

/// Runs `call` and writes `line`. On success, `describe(line, result)` adds values to the line. On failure, the line
/// contains the error. The last value is the duration of the call.
template <typename Call, typename Describe>
auto WriteCall(Output& output, Line line, Call&& call, Describe&& describe) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    try {
        auto result = call();
        const auto time = Clock::now() - start;
        describe(line, result);
        line.Time(time).WriteTo(output);
        return result;
    } catch (...) {
        line.Error(std::current_exception()).Time(Clock::now() - start).WriteTo(output);
        throw;
    }
}

}  // namespace trace
