#include "trace/win32/TraceFile.h"

#include <cstdio>
#include <string>

#include "runtime/ScopeGuard.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/QuietErrors.h"

namespace trace::win32 {
namespace {

using runtime::win32::FileHandle;
using runtime::win32::Wide;

/// The lock is beyond the end of every real file.
constexpr DWORD kLockOffsetHigh = 0x40000000;
constexpr DWORD kLockedBytes = 1;
/// Other writers need only a fraction of a millisecond for a line. Therefore the thread does not sleep between the
/// first attempts, but only lets other threads run.
constexpr int kAttemptsWithoutSleep = 50;

OVERLAPPED At(std::uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

OVERLAPPED LockPlace() {
    return At(std::uint64_t{kLockOffsetHigh} << 32);
}

std::string Prefix(const SYSTEMTIME& time) {
    char text[64];
    const int length = std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%03u %lu/%lu ",
                                     unsigned{time.wYear}, unsigned{time.wMonth}, unsigned{time.wDay},
                                     unsigned{time.wHour}, unsigned{time.wMinute}, unsigned{time.wSecond},
                                     unsigned{time.wMilliseconds}, GetCurrentProcessId(), GetCurrentThreadId());
    return std::string(text, static_cast<std::size_t>(length));
}

}  // namespace

std::unique_ptr<TraceFile> TraceFile::Open(const runtime::String& path) {
    // Suppress the system's message about a drive without a disk.
    const auto quiet = runtime::win32::QuietErrors(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    FileHandle file(CreateFileW(Wide(path), GENERIC_READ | GENERIC_WRITE,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return nullptr;
    // Refuse pipes and consoles, because they could block the writer.
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) {
        SetLastError(ERROR_BAD_FILE_TYPE);
        return nullptr;
    }
    return std::unique_ptr<TraceFile>(new TraceFile(std::move(file)));
}

void TraceFile::Write(std::string_view line) noexcept {
    const runtime::ScopeGuard restoreLastError([error = GetLastError()] { SetLastError(error); });
    bool isWritten = false;
    try {
        isWritten = WriteLocked(line);
    } catch (...) {
        // There was not enough memory for the line.
    }
    if (!isWritten) CountLost();
}

bool TraceFile::WriteLocked(std::string_view line) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    std::unique_lock thread(threads_, std::defer_lock);
    isThreadStopped_ = isThreadStopped_ ? !thread.try_lock() : !thread.try_lock_for(kMaxWait);
    if (!thread.owns_lock() || !Lock()) return false;
    const runtime::ScopeGuard unlock([this] {
        OVERLAPPED place = LockPlace();
        UnlockFileEx(file_.Get(), 0, kLockedBytes, 0, &place);
    });
    const std::string prefix = Prefix(now);
    const unsigned lost = lost_;
    std::string lines;
    if (lost > 0) lines.append(prefix).append("trace lines lost=[").append(std::to_string(lost)).append("]\n");
    lines.append(prefix).append(line).append("\n");
    const bool isWritten = Append(lines);
    if (isWritten) lost_ -= lost;
    return isWritten;
}

bool TraceFile::Lock() {
    const ULONGLONG start = GetTickCount64();
    for (int attempt = 0;; ++attempt) {
        // Look at the time before the attempt, so that a thread that was stopped makes a last attempt.
        const bool isLate = isBlocked_ || GetTickCount64() - start > static_cast<ULONGLONG>(kMaxWait.count());
        OVERLAPPED place = LockPlace();
        const DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
        const bool isLocked = LockFileEx(file_.Get(), flags, 0, kLockedBytes, 0, &place) != FALSE;
        const bool isHeldElsewhere = !isLocked && GetLastError() == ERROR_LOCK_VIOLATION;
        if (!isHeldElsewhere || isLate) {
            isBlocked_ = isHeldElsewhere;
            return isLocked;
        }
        Sleep(attempt < kAttemptsWithoutSleep ? 0 : 1);
    }
}

bool TraceFile::Append(std::string_view bytes) const {
    LARGE_INTEGER end;
    if (!GetFileSizeEx(file_.Get(), &end)) return false;
    OVERLAPPED place = At(static_cast<std::uint64_t>(end.QuadPart));
    DWORD written = 0;
    const bool succeeded = WriteFile(file_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, &place);
    if (succeeded && written == bytes.size()) return true;
    // Remove the written part of an incomplete line.
    if (SetFilePointerEx(file_.Get(), end, nullptr, FILE_BEGIN)) SetEndOfFile(file_.Get());
    return false;
}

runtime::String PathFromEnvironment() {
    return runtime::win32::FillGrowing(
        [](wchar_t* buffer, DWORD capacity) { return GetEnvironmentVariableW(kFileVariable, buffer, capacity); });
}

std::unique_ptr<Output> OpenFromEnvironment() {
    const runtime::String path = PathFromEnvironment();
    if (path.empty()) return nullptr;
    std::unique_ptr<TraceFile> file = TraceFile::Open(path);
    if (!file) {
        const std::string why = "K4TBackProcess: no trace, the file cannot be opened: system error " +
                                std::to_string(GetLastError()) + ", " + runtime::ToUtf8(path) + "\n";
        OutputDebugStringA(why.c_str());
    }
    return file;
}

}  // namespace trace::win32
