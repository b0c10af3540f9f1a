#include "host/com/Module.h"

#include "host/com/Guard.h"
#include "runtime/win32/GrowingBuffer.h"

namespace host::com {
namespace {

[[noreturn]] void ThrowLastError() {
    throw ComError(HRESULT_FROM_WIN32(GetLastError()));
}

}  // namespace

HMODULE OwnModule() {
    constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(kFlags, reinterpret_cast<const wchar_t*>(&OwnModule), &module)) ThrowLastError();
    return module;
}

runtime::String ModulePath() {
    const HMODULE module = OwnModule();
    const runtime::String path = runtime::win32::FillGrowing(
        [module](wchar_t* buffer, DWORD capacity) { return GetModuleFileNameW(module, buffer, capacity); });
    if (path.empty()) ThrowLastError();
    return path;
}

}  // namespace host::com
