// One line of a trace: what happened, then NAME=[VALUE] for each value.
//
// A value never ends its line or its brackets: a control character, a line or direction mark, a lone surrogate and "]"
// are written as \u{HEX}. A backslash stays as it is, so that paths can be read and searched for; only one that would
// look like such an escape is written as \u{5C}. So every value can be read back.
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

/// A longer value is cut to this many characters, and its length follows its brackets.
constexpr std::size_t kMaxCharacters = 256;

/// None of its functions throws: a line for which there is no memory is lost, and counted by the output.
class Line {
 public:
    explicit Line(std::string_view event) noexcept {
        Append([&] { text_ = event; });
    }

    Line& Text(std::string_view name, StringView value) noexcept;
    /// The beginning of a value that is `length` units long: at least kMaxCharacters of it, or all.
    Line& Beginning(std::string_view name, StringView beginning, std::size_t length, std::string_view units) noexcept;
    /// A value that is not there: NAME= alone.
    Line& None(std::string_view name) noexcept;
    Line& Number(std::string_view name, std::int64_t value) noexcept;
    /// As 0x and eight digits.
    Line& Hex(std::string_view name, std::uint32_t value) noexcept;
    /// In milliseconds, as ms=[12.345].
    Line& Time(std::chrono::steady_clock::duration time) noexcept;
    /// The number of a runtime error, and the description.
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

/// Runs `call` and writes `line`: with what `describe(line, result)` adds to it, or the error; then the time.
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
