// An output receives the lines of a trace. Under Windows, the output is a file. In tests, the output stores the lines
// in memory.
#pragma once

#include <string_view>

namespace trace {

/// Any thread may call the functions. They do not throw, do not wait long, and do not dispatch window messages.
class Output {
 public:
    virtual ~Output() = default;

    /// Writes one line without a line end. If the line cannot be written, it is lost and counted.
    virtual void Write(std::string_view line) noexcept = 0;
    /// Counts a line that was lost before it was complete.
    virtual void CountLost() noexcept = 0;
};

}  // namespace trace
