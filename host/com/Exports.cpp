// Implements the DLL's exports. The module definition file gives the exports undecorated names.
#include "host/com/HomeApartment.h"
#include "host/com/Server.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    return host::com::GetClassObject(classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return host::com::CanUnload() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return host::com::RegisterServer();
}

STDAPI DllUnregisterServer() {
    return host::com::UnregisterServer();
}

STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    return host::com::Install(install != FALSE, commandLine);
}
