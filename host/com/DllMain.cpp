// The DLL's entry point. It runs under the loader's lock, so it does only what cannot be done elsewhere: window
// classes refer to our code and must go with it. When the process ends, the system takes everything back itself.
//
// Thread notifications stay on: the statically linked language runtime frees a thread's data by them.
#include "host/com/ServiceObject.h"
#include "runtime/win32/WindowsHeaders.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID reserved) {
    const bool isFreed = reason == DLL_PROCESS_DETACH && reserved == nullptr;
    if (isFreed) host::com::LeaveProcess();
    return TRUE;
}
