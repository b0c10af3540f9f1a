// A component that may not register itself for the machine, as it is without an administrator's rights.
#include "runtime/win32/WindowsHeaders.h"

extern "C" HRESULT __stdcall DllRegisterServer() {
    return E_ACCESSDENIED;
}
