// Reads the file of a trace while programs append lines to the file.
#include "tools/TraceView.h"

#include <ostream>
#include <stdexcept>
#include <system_error>

#include "runtime/win32/GrowingBuffer.h"
#include "tools/ComFailure.h"
#include "tools/Display.h"
#include "trace/win32/TraceFile.h"

namespace tools {

namespace {

using runtime::String;
using runtime::win32::Wide;

constexpr DWORD kPauseBetweenLooks = 50;  // milliseconds
constexpr DWORD kReadBytes = 1 << 16;

String FullPath(const String& name) {
    return runtime::win32::FillGrowing(
        [&name](wchar_t* buffer, DWORD capacity) { return GetFullPathNameW(Wide(name), capacity, buffer, nullptr); });
}

/// Returns the path of a new, empty file.
String TemporaryPath() {
    wchar_t folder[MAX_PATH + 1]{};
    wchar_t path[MAX_PATH + 1]{};
    if (GetTempPathW(MAX_PATH, folder) == 0 || GetTempFileNameW(folder, L"k4t", 0, path) == 0) {
        throw std::runtime_error("cannot make a temporary file; name a file with '--file'");
    }
    return runtime::win32::ToString(path);
}

LONGLONG SizeOf(HANDLE file) {
    LARGE_INTEGER size{};
    GetFileSizeEx(file, &size);
    return size.QuadPart;
}

}  // namespace

TraceTarget::TraceTarget(const String* name)
    : path_(name ? FullPath(*name) : TemporaryPath()),
      isTemporary_(name == nullptr),
      file_(CreateFileW(Wide(path_), GENERIC_READ | GENERIC_WRITE,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                        FILE_ATTRIBUTE_NORMAL, nullptr)) {
    if (!file_ || GetFileType(file_.Get()) != FILE_TYPE_DISK) {
        const std::string why = file_ ? "it is no file" : SystemText(HRESULT_FROM_WIN32(GetLastError()));
        throw std::runtime_error("cannot write the trace " + Quoted(path_) + ": " + why +
                                 "; name a file in a folder where you may write");
    }
    position_ = SizeOf(file_.Get());
}

TraceTarget::~TraceTarget() {
    file_.Reset();
    if (isTemporary_) DeleteFileW(Wide(path_));
}

void TraceTarget::UseForThisProcess() const {
    SetEnvironmentVariableW(trace::win32::kFileVariable, Wide(path_));
}

std::string TraceTarget::NewLines() {
    // Another program has truncated the file.
    if (SizeOf(file_.Get()) < position_) position_ = 0;
    std::string bytes(kReadBytes, '\0');
    for (DWORD read = 1; read != 0;) {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(position_);
        place.OffsetHigh = static_cast<DWORD>(position_ >> 32);
        read = 0;
        if (!ReadFile(file_.Get(), bytes.data(), kReadBytes, &read, &place)) break;
        rest_.append(bytes, 0, read);
        position_ += read;
    }
    const std::size_t end = rest_.rfind('\n') + 1;
    std::string lines = rest_.substr(0, end);
    rest_.erase(0, end);
    return lines;
}

TraceView::TraceView(TraceTarget& target, std::ostream& out)
    : target_(target), out_(out), stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    if (!stop_) throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateEvent");
    thread_ = std::thread([this] {
        while (WaitForSingleObject(stop_.Get(), kPauseBetweenLooks) == WAIT_TIMEOUT) {
            const std::lock_guard lock(printing_);
            PrintNewLines();
        }
    });
}

TraceView::~TraceView() {
    SetEvent(stop_.Get());
    thread_.join();
    PrintNewLines();
}

void TraceView::Print(const std::string& line) {
    const std::lock_guard lock(printing_);
    PrintNewLines();
    out_ << line << '\n' << std::flush;
}

void TraceView::PrintNewLines() {
    const std::string lines = target_.NewLines();
    if (!lines.empty()) out_ << lines << std::flush;
}

}  // namespace tools
