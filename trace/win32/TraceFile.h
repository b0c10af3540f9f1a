// Writes a trace to a file. Each line begins with the local time, the process and the thread:
//     2026-11-20 14:03:07.125 1234/5678 E_GetString key=[AllAps] value=[EDITOR,LIBRARY] ms=[0.021]
//
// Any number of processes and threads append to one file. A writer takes a lock and then writes the line at the end of
// the file. The lock is a byte range far beyond that end. The system releases the lock when the process that
// holds the lock ends.
//
// If a process is stopped while it holds the lock, each other process waits once for kMaxWait. Until the lock is free,
// the other processes then lose their lines without waiting. The threads of a process wait for each other in the same
// way. If a line cannot be written completely, for example on a full disk, its written part is removed. Before the next
// written line, a line reports the number of lost lines.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

#include "runtime/win32/Handle.h"
#include "trace/Output.h"

namespace trace::win32 {

/// The environment variable that contains the path of the file. If the variable is missing or empty, nothing is traced.
inline constexpr const wchar_t* kFileVariable = L"K4TBACKPROCESS_TRACE";

/// The maximum time for which a line waits for other threads, and then again for other processes.
constexpr std::chrono::milliseconds kMaxWait{2000};

class TraceFile final : public Output {
 public:
    /// Opens or creates the file at `path`. Returns null if the path is not a disk file or cannot be written.
    /// GetLastError then returns the reason.
    static std::unique_ptr<TraceFile> Open(const runtime::String& path);

    /// Does not change the thread's last error. CountLost does not change it either.
    void Write(std::string_view line) noexcept override;
    void CountLost() noexcept override { ++lost_; }

 private:
    explicit TraceFile(runtime::win32::FileHandle file) : file_(std::move(file)) {}

    bool WriteLocked(std::string_view line);
    bool Lock();
    bool Append(std::string_view bytes) const;

    const runtime::win32::FileHandle file_;
    std::timed_mutex threads_;
    std::atomic<bool> isThreadStopped_ = false;  ///< true if the last wait for another thread timed out
    bool isBlocked_ = false;                     ///< true if the last wait for another process timed out
    std::atomic<unsigned> lost_ = 0;
};

/// Returns the unchanged value of the variable kFileVariable; "" if the variable is missing or empty.
runtime::String PathFromEnvironment();

/// Opens the file that the environment names. Returns null if the variable is missing or empty, or if the file cannot
/// be opened. If it cannot be opened, sends a line to the debugger.
std::unique_ptr<Output> OpenFromEnvironment();

}  // namespace trace::win32
