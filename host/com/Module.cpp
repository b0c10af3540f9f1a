#include "host/com/Module.h"

#include "host/com/Guard.h"
#include "runtime/win32/ModulePath.h"

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
    const runtime::String path = runtime::win32::ModulePath(OwnModule());
    if (path.empty()) ThrowLastError();
    return path;
}

}  // namespace host::com
