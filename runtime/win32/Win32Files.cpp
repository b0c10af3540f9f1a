#include "runtime/win32/Win32Files.h"

#include <algorithm>
#include <new>

#include "runtime/Error.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/QuietErrors.h"

namespace runtime::win32 {
namespace {

/// The system's limit for a path, including the terminator. Some system functions do not check this limit.
constexpr std::size_t kMaxPathLength = 32767;

bool CanBePath(StringView path) {
    return !path.empty() && path.size() < kMaxPathLength && path.find(u'\0') == StringView::npos;
}

/// Returns the full path for `path`, or "" on failure.
String FullPath(StringView path) {
    const String given(path);
    return FillGrowing(
        [&given](wchar_t* buffer, DWORD capacity) { return GetFullPathNameW(Wide(given), capacity, buffer, nullptr); });
}

/// Returns `path`, or the full path in the extended-length form if the full path is too long for the plain form.
String ToExtendedLengthPath(StringView path) {
    constexpr std::size_t kMaxPlainPathLength = 247;
    const String full = FullPath(path);
    if (full.size() <= kMaxPlainPathLength) return String(path);
    if (full.starts_with(u"\\\\?\\") || full.starts_with(u"\\\\.\\")) return full;
    if (full.starts_with(u"\\\\")) return u"\\\\?\\UNC" + full.substr(1);
    return u"\\\\?\\" + full;
}

bool IsOnMissingDrive(StringView path) {
    const String full = FullPath(path);
    if (full.size() < 3 || full[1] != u':') return false;
    return GetDriveTypeW(Wide(full.substr(0, 3))) == DRIVE_NO_ROOT_DIR;
}

ErrorNumber ChangeFolderError(DWORD systemError) {
    switch (systemError) {
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_UNIT:
        case ERROR_NOT_READY:
        case ERROR_DEV_NOT_EXIST:
        case ERROR_UNRECOGNIZED_VOLUME:
        case ERROR_NO_MEDIA_IN_DRIVE:
        case ERROR_DEVICE_NOT_CONNECTED:
            return kDeviceUnavailable;
        case ERROR_ACCESS_DENIED:
        case ERROR_NETWORK_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOGON_FAILURE:
            return kPathFileAccessError;
        default:
            return kPathNotFound;
    }
}

bool IsOrdinaryFile(const WIN32_FIND_DATAW& found) {
    constexpr DWORD kOthers = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    return (found.dwFileAttributes & kOthers) == 0;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32) | low;
}

/// Reads up to the end of the file. The file may grow during the call. Returns false if reading fails.
bool ReadAll(HANDLE file, std::string& contents) {
    constexpr DWORD kStep = 1u << 20;
    std::size_t length = 0;
    for (;;) {
        if (contents.size() == length) contents.resize(length + kStep);
        const auto room = static_cast<DWORD>(std::min<std::size_t>(contents.size() - length, kStep));
        DWORD read = 0;
        if (!ReadFile(file, contents.data() + length, room, &read, nullptr)) return false;
        if (read == 0) break;
        length += read;
    }
    contents.resize(length);
    return true;
}

}  // namespace

String Win32Files::CurrentFolder() {
    return FillGrowing([](wchar_t* buffer, DWORD capacity) { return GetCurrentDirectoryW(capacity, buffer); });
}

void Win32Files::ChangeFolder(StringView path) {
    if (!CanBePath(path)) throw Error(kPathNotFound);
    const auto quiet = QuietErrors(SEM_FAILCRITICALERRORS);
    const String folder(path);
    if (SetCurrentDirectoryW(Wide(folder))) return;
    const DWORD systemError = GetLastError();
    throw Error(IsOnMissingDrive(path) ? kDeviceUnavailable : ChangeFolderError(systemError));
}

String Win32Files::FirstMatch(StringView pattern) {
    // File names cannot contain these characters, but the system accepts the characters as wildcards.
    if (!CanBePath(pattern) || pattern.find_first_of(u"<>\"") != StringView::npos) return {};
    String sought(pattern);
    if (StringView(u"\\/:").find(sought.back()) != StringView::npos) sought += u'*';
    const auto quiet = QuietErrors(SEM_FAILCRITICALERRORS);
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileW(Wide(ToExtendedLengthPath(sought)), &found));
    if (!search) return {};
    do {
        if (IsOrdinaryFile(found)) return ToString(found.cFileName);
    } while (FindNextFileW(search.Get(), &found));
    return {};
}

std::optional<FileStamp> Win32Files::Stamp(StringView path) {
    if (!CanBePath(path)) return std::nullopt;
    const auto quiet = QuietErrors(SEM_FAILCRITICALERRORS);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(Wide(ToExtendedLengthPath(path)), GetFileExInfoStandard, &data)) return std::nullopt;
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) return std::nullopt;
    return FileStamp{.modified = Joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime),
                     .size = Joined(data.nFileSizeHigh, data.nFileSizeLow)};
}

std::optional<std::string> Win32Files::Read(StringView path) {
    if (!CanBePath(path)) return std::nullopt;
    const auto quiet = QuietErrors(SEM_FAILCRITICALERRORS);
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const FileHandle file(CreateFileW(Wide(ToExtendedLengthPath(path)), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK) return std::nullopt;
    LARGE_INTEGER size{};
    std::string contents;
    if (!GetFileSizeEx(file.Get(), &size)) return std::nullopt;
    if (static_cast<std::uint64_t>(size.QuadPart) >= contents.max_size()) return std::nullopt;
    try {
        // Use one byte more than the file's size, so that the read at the end of the file needs no larger buffer.
        contents.resize(static_cast<std::size_t>(size.QuadPart) + 1);
        if (!ReadAll(file.Get(), contents)) return std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    return contents;
}

}  // namespace runtime::win32
