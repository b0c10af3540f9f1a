// Lines of a stream, read on a thread of their own so that the caller can serve its windows while it waits.
#pragma once

#include <atomic>
#include <istream>
#include <optional>
#include <string>
#include <thread>

#include "runtime/win32/Handle.h"

namespace tools {

/// Reads `in`, which must outlive it. The destructor waits for a read that is under way.
class LineReader {
 public:
    explicit LineReader(std::istream& in);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;
    ~LineReader();

    /// The next line without its line end (LF or CR LF); none at the end of the stream. Dispatches window messages
    /// until it is there.
    std::optional<std::string> Next();

 private:
    void Read();

    std::istream& in_;
    // One line is under way at a time: the events hand `line_` from one thread to the other.
    std::optional<std::string> line_;
    std::atomic<bool> stopped_ = false;
    runtime::win32::KernelHandle wanted_;
    runtime::win32::KernelHandle ready_;
    std::thread thread_;
};

}  // namespace tools
