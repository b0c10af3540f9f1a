// The file that a trace is written to. Each line begins with the local time, the process and the thread:
//     2026-11-20 14:03:07.125 1234/5678 E_GetString key=[AllAps] value=[EDITOR,LIBRARY] ms=[0.021]
//
// Any number of processes and threads append to one file: a line is written under a lock, at the end that the file has
// then. The lock is a byte range far behind that end, and the system releases it when its process ends. A process that
// is stopped with the lock delays each of the others once, for kMaxWait; after that their lines are lost without a wait
// until the lock can be had again. A line that cannot be written completely, on a full disk for example, is taken back.
// The next line that is written then follows a line that names how many were lost.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

#include "runtime/win32/Handle.h"
#include "trace/Output.h"

namespace trace::win32 {

/// Names the file. Without it, or when it is empty, nothing is traced.
inline constexpr const wchar_t* kFileVariable = L"K4TBACKPROCESS_TRACE";

/// How long a line waits for the lines of other threads and processes.
constexpr std::chrono::milliseconds kMaxWait{2000};

class TraceFile final : public Output {
 public:
    /// Opens the file at `path`, or creates it. None when it is no file or cannot be written; GetLastError says why.
    static std::unique_ptr<TraceFile> Open(const runtime::String& path);

    /// Leaves the thread's last error as it is, like CountLost.
    void Write(std::string_view line) noexcept override;
    void CountLost() noexcept override { ++lost_; }

 private:
    explicit TraceFile(runtime::win32::FileHandle file) : file_(std::move(file)) {}

    bool WriteLocked(std::string_view line);
    bool Lock();
    bool Append(std::string_view bytes) const;

    const runtime::win32::FileHandle file_;
    std::timed_mutex threads_;
    bool isBlocked_ = false;  ///< the last wait for another process was in vain
    std::atomic<unsigned> lost_ = 0;
};

/// The file that the environment names. None when it names none, or one that cannot be opened: then the debugger gets a
/// line that says so.
std::unique_ptr<Output> OpenFromEnvironment();

}  // namespace trace::win32
