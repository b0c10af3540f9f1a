// Implements the functions of QmxKrn2K.h for modules. Each function calls the kernel library that the component has
// loaded in this process. The functions do not load a library, so they never load a foreign library with that name.
//
// The functions use no exceptions and no standard library, so that programs in every programming language can link
// them.
#include "QmxKrn2K.h"

#include <windows.h>

namespace {

/// The codes of the structured exceptions that a compiler's delayed imports raise if the library or the entry is
/// missing.
constexpr DWORD kLibraryNotFound = 0xC06D007E;
constexpr DWORD kEntryNotFound = 0xC06D007F;

void Fail(DWORD code) {
    RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
}

/// Returns the entry `name` of the kernel. `found` stores the address for later calls; null before the first call.
template <typename Function>
Function Entry(Function& found, const char* name) {
    if (found) return found;
    const HMODULE kernel = GetModuleHandleW(L"QmxKrn2K.dll");
    if (!kernel) Fail(kLibraryNotFound);
    const FARPROC address = GetProcAddress(kernel, name);
    if (!address) Fail(kEntryNotFound);
    return found = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

decltype(&E_SetString) setString = nullptr;
decltype(&E_GetString) getString = nullptr;
decltype(&DB_DataBase) dataBase = nullptr;
decltype(&O_GetName) getName = nullptr;

}  // namespace

extern "C" {

long __stdcall E_SetString(const char* key, char* value) {
    return Entry(setString, "E_SetString")(key, value);
}

long __stdcall E_GetString(const char* key) {
    return Entry(getString, "E_GetString")(key);
}

long __stdcall DB_DataBase() {
    return Entry(dataBase, "DB_DataBase")();
}

long __stdcall O_GetName(long handle) {
    return Entry(getName, "O_GetName")(handle);
}

}  // extern "C"
