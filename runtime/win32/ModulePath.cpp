#include "runtime/win32/ModulePath.h"

#include "runtime/win32/GrowingBuffer.h"

namespace runtime::win32 {

String ModulePath(HMODULE module) {
    return FillGrowing(
        [module](wchar_t* buffer, DWORD capacity) { return GetModuleFileNameW(module, buffer, capacity); });
}

String FolderOf(StringView path) {
    const auto slash = path.rfind(u'\\');
    if (slash == StringView::npos) return {};
    const bool isDriveRoot = slash > 0 && path[slash - 1] == u':';
    return String(path.substr(0, isDriveRoot ? slash + 1 : slash));
}

}  // namespace runtime::win32
