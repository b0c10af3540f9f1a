#include "host/com/Module.h"

#include "host/com/Guard.h"
#include "runtime/win32/ModulePath.h"

namespace host::com {
namespace {

[[noreturn]] void ThrowLastError() {
    throw ComError(HRESULT_FROM_WIN32(GetLastError()));
}

HMODULE Find(DWORD flags) {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(flags | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const wchar_t*>(&Find),
                            &module)) {
        ThrowLastError();
    }
    return module;
}

}  // namespace

HMODULE OwnModule() {
    return Find(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
}

void PinModule() {
    Find(GET_MODULE_HANDLE_EX_FLAG_PIN);
}

runtime::String ModulePath() {
    const runtime::String path = runtime::win32::ModulePath(OwnModule());
    if (path.empty()) ThrowLastError();
    return path;
}

}  // namespace host::com
