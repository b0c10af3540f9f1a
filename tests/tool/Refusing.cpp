// A component whose registration for the machine fails, as it would without administrator rights.
#include "runtime/win32/WindowsHeaders.h"

extern "C" HRESULT __stdcall DllRegisterServer() {
    return E_ACCESSDENIED;
}
