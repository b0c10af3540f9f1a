// Reads the lines of a stream on an extra thread, so that the calling thread can dispatch messages while it waits.
#pragma once

#include <atomic>
#include <istream>
#include <optional>
#include <string>
#include <thread>

#include "runtime/win32/Handle.h"

namespace tools {

/// Reads `in`, which must outlive the reader. The destructor waits for a read in progress.
class LineReader {
 public:
    explicit LineReader(std::istream& in);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;
    ~LineReader();

    /// Returns the next line without its line end (LF or CR LF), or no value at the end of the stream. Dispatches
    /// window messages while it waits.
    std::optional<std::string> Next();

 private:
    void Read();

    std::istream& in_;
    // The events `wanted_` and `ready_` ensure that only one thread uses `line_` at a time.
    std::optional<std::string> line_;
    std::atomic<bool> stopped_ = false;
    runtime::win32::KernelHandle wanted_;
    runtime::win32::KernelHandle ready_;
    std::thread thread_;
};

}  // namespace tools
