// Shows the lines of a trace while programs write the trace.
#pragma once

#include <iosfwd>
#include <mutex>
#include <string>
#include <thread>

#include "runtime/win32/Handle.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// Owns a file for a trace. If `name` is null, the file is temporary, and the destructor deletes the file.
class TraceTarget {
 public:
    /// Throws std::runtime_error if the file cannot be written.
    explicit TraceTarget(const runtime::String* name);
    TraceTarget(const TraceTarget&) = delete;
    TraceTarget& operator=(const TraceTarget&) = delete;
    ~TraceTarget();

    /// Makes programs that this process starts write their trace to the file. A component that this process composes
    /// does the same.
    void UseForThisProcess() const;
    /// Returns the complete lines that were written since the previous call. The first call returns the lines since the
    /// object's creation.
    std::string NewLines();

 private:
    runtime::String path_;
    bool isTemporary_;
    runtime::win32::FileHandle file_;
    LONGLONG position_ = 0;
    std::string rest_;  ///< characters of an incomplete line
};

/// Prints the lines of a target on an extra thread. Prints other lines between the target's lines in the right order.
class TraceView {
 public:
    /// `target` and `out` must outlive the object.
    TraceView(TraceTarget& target, std::ostream& out);
    TraceView(const TraceView&) = delete;
    TraceView& operator=(const TraceView&) = delete;
    /// Prints all remaining complete lines.
    ~TraceView();

    /// Prints the lines of the trace that were written before, and then `line`.
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
