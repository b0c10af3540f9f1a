// Shows the lines of a trace while programs write the trace.
#pragma once

#include <iosfwd>
#include <mutex>
#include <string>
#include <thread>

#include "runtime/win32/Handle.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// Owns a file for a trace. A temporary file has a folder of its own. The destructor deletes both, so that a program
/// that is still running cannot make the file again.
class TraceTarget {
 public:
    /// If `name` is null, uses the file that the environment names, or else a temporary file. Throws std::runtime_error
    /// if the file cannot be written.
    explicit TraceTarget(const runtime::String* name);
    TraceTarget(const TraceTarget&) = delete;
    TraceTarget& operator=(const TraceTarget&) = delete;
    ~TraceTarget();

    /// Makes programs that this process starts write their trace to the file. A component that this process composes
    /// later writes its trace to the file, too.
    void UseForThisProcess() const;
    /// Returns the complete lines that were written since the previous call. The first call returns the lines since the
    /// object's creation.
    std::string NewLines();

 private:
    runtime::String folder_;  ///< the temporary file's folder; empty if the file is not temporary
    runtime::String path_;
    runtime::win32::FileHandle file_;
    LONGLONG position_ = 0;  ///< the end of the last line that was returned
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
    /// Returns when a line cannot be printed, for example because the reader of a pipe has ended. Call it only once.
    void WaitForFailure() { thread_.join(); }

 private:
    void PrintNewLines();

    TraceTarget& target_;
    std::ostream& out_;
    std::mutex printing_;
    runtime::win32::KernelHandle stop_;
    std::thread thread_;
};

}  // namespace tools
