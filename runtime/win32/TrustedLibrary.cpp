#include "runtime/win32/TrustedLibrary.h"

#include "runtime/win32/GrowingBuffer.h"

namespace runtime::win32 {

Library LoadTrusted(const String& path) {
    constexpr DWORD kTrustedFolders =
        LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
    Library library(LoadLibraryExW(Wide(path), nullptr, kTrustedFolders));
    // Windows 7 without the update of 2011 does not support these flags.
    if (!library && GetLastError() == ERROR_INVALID_PARAMETER) {
        library = Library(LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    }
    return library;
}

String InSystemFolder(StringView file) {
    const String folder =
        FillGrowing([](wchar_t* buffer, DWORD capacity) { return GetSystemDirectoryW(buffer, capacity); });
    return folder + u'\\' + String(file);
}

}  // namespace runtime::win32
