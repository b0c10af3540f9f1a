// Where the lines of a trace go: a file under Windows, memory in tests.
#pragma once

#include <string_view>

namespace trace {

/// Used on any thread. Neither function throws, waits long, or lets events run.
class Output {
 public:
    virtual ~Output() = default;

    /// Takes one line without a line end. A line that cannot be written is lost and counted.
    virtual void Write(std::string_view line) noexcept = 0;
    /// Counts a line that could not even be put together.
    virtual void CountLost() noexcept = 0;
};

}  // namespace trace
