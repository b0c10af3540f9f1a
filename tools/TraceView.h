// Shows the lines of a trace as programs write them.
#pragma once

#include <iosfwd>
#include <mutex>
#include <string>
#include <thread>

#include "runtime/win32/Handle.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// A file for a trace, for the time of the object. Without a name it is a temporary one, which is deleted at the end.
class TraceTarget {
 public:
    /// Throws runtime_error if the file cannot be written.
    explicit TraceTarget(const runtime::String* name);
    TraceTarget(const TraceTarget&) = delete;
    TraceTarget& operator=(const TraceTarget&) = delete;
    ~TraceTarget();

    /// The programs that this process starts, and a component that it composes, write their trace to the file.
    void UseForThisProcess() const;
    /// The complete lines that were written since the object was made, or since the last call.
    std::string NewLines();

 private:
    runtime::String path_;
    bool isTemporary_;
    runtime::win32::FileHandle file_;
    LONGLONG position_ = 0;
    std::string rest_;  ///< read, but not complete
};

/// Prints the lines of a target from a thread of its own, and other lines in the right order between them.
class TraceView {
 public:
    /// Both must outlive the object.
    TraceView(TraceTarget& target, std::ostream& out);
    TraceView(const TraceView&) = delete;
    TraceView& operator=(const TraceView&) = delete;
    /// Prints what was written until now.
    ~TraceView();

    /// Prints `line` behind the lines of the trace that were written before.
    void Print(const std::string& line);

 private:
    void PrintNewLines();

    TraceTarget& target_;
    std::ostream& out_;
    std::mutex printing_;
    runtime::win32::KernelHandle stop_;
    std::thread thread_;
};

}  // namespace tools
