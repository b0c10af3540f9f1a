// Reads the file of a trace while programs append lines to the file.
#include "tools/TraceView.h"

#include <optional>
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

/// Returns the full path of the file `name`. If `name` is null, returns the full path of the file that the environment
/// names; no value if the environment names no file.
std::optional<String> NamedPath(const String* name) {
    if (name) return FullPath(*name);
    const String path = trace::win32::PathFromEnvironment();
    return path.empty() ? std::nullopt : std::optional(FullPath(path));
}

/// Returns the path of a new, empty folder.
String MakeTemporaryFolder() {
    wchar_t parent[MAX_PATH + 1]{};
    wchar_t path[MAX_PATH + 1]{};
    // The system makes a file to reserve the name.
    if (GetTempPathW(MAX_PATH, parent) == 0 || GetTempFileNameW(parent, L"k4t", 0, path) == 0 || !DeleteFileW(path) ||
        !CreateDirectoryW(path, nullptr)) {
        throw std::runtime_error("cannot make a temporary file; set TMP to a folder where you may write");
    }
    return runtime::win32::ToString(path);
}

runtime::win32::FileHandle OpenForTrace(const String& path) {
    return runtime::win32::FileHandle(CreateFileW(Wide(path), GENERIC_READ | GENERIC_WRITE,
                                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

LONGLONG SizeOf(HANDLE file) {
    LARGE_INTEGER size{};
    GetFileSizeEx(file, &size);
    return size.QuadPart;
}

}  // namespace

TraceTarget::TraceTarget(const String* name) {
    const std::optional<String> named = NamedPath(name);
    if (!named) folder_ = MakeTemporaryFolder();
    path_ = named.value_or(folder_ + u"\\trace.txt");
    file_ = OpenForTrace(path_);
    if (!file_ || GetFileType(file_.Get()) != FILE_TYPE_DISK) {
        const std::string why = file_ ? "it is no file" : SystemText(HRESULT_FROM_WIN32(GetLastError()));
        throw std::runtime_error("cannot write the trace " + Quoted(path_) + ": " + why +
                                 "; name a file in a folder where you may write");
    }
    position_ = SizeOf(file_.Get());
}

TraceTarget::~TraceTarget() {
    if (folder_.empty()) return;
    file_.Reset();
    // A program may still have the file open. The system then deletes the file later, but this function can move
    // the file out of the folder at once.
    const String moved = folder_ + u".txt";
    MoveFileW(Wide(path_), Wide(moved));
    DeleteFileW(Wide(moved));
    RemoveDirectoryW(Wide(folder_));
}

void TraceTarget::UseForThisProcess() const {
    SetEnvironmentVariableW(trace::win32::kFileVariable, Wide(path_));
}

std::string TraceTarget::NewLines() {
    // A file that is shorter than before was truncated by another program.
    if (SizeOf(file_.Get()) < position_) position_ = 0;
    std::string lines;
    std::string bytes(kReadBytes, '\0');
    for (DWORD read = 1; read != 0;) {
        const LONGLONG offset = position_ + static_cast<LONGLONG>(lines.size());
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(offset);
        place.OffsetHigh = static_cast<DWORD>(offset >> 32);
        read = 0;
        if (!ReadFile(file_.Get(), bytes.data(), kReadBytes, &read, &place)) break;
        lines.append(bytes, 0, read);
    }
    // Read an incomplete line again later, because its writer may remove it.
    lines.erase(lines.rfind('\n') + 1);
    position_ += static_cast<LONGLONG>(lines.size());
    return lines;
}

TraceView::TraceView(TraceTarget& target, std::ostream& out)
    : target_(target), out_(out), stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    if (!stop_) throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateEvent");
    thread_ = std::thread([this] {
        while (WaitForSingleObject(stop_.Get(), kPauseBetweenLooks) == WAIT_TIMEOUT) {
            const std::lock_guard lock(printing_);
            PrintNewLines();
            if (!out_) return;
        }
    });
}

TraceView::~TraceView() {
    SetEvent(stop_.Get());
    if (thread_.joinable()) thread_.join();
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
