// The suite's kernel in its own library, QmxKrn2K.dll. It is loaded at the first call, each entry is looked up when it
// is first needed, and what failed is tried again at the next call: the library may arrive later.
//
// For one thread at a time. The library stays loaded, and the addresses that it handed out hold, while this lives.
#pragma once

#include <string>
#include <vector>

#include "kernel_api/Kernel.h"
#include "runtime/win32/Handle.h"

namespace kernel_api::win32 {

/// Errors of all calls: 53 (no library), 48 (it will not load), 453 (it lacks the entry).
class KernelLibrary : public Kernel {
 public:
    /// `folder` is where the library is looked for first; the system's own search comes second, or first for "".
    explicit KernelLibrary(String folder);

    void E_SetString(StringView key, String& value) override;
    TextPointer E_GetString(StringView key) override;
    std::int32_t DB_DataBase() override;
    TextPointer O_GetName(std::int32_t handle) override;

    /// Full path of the library. Errors 53 and 48.
    String Path();
    /// The names of those of the four entries that it lacks. Errors 53 and 48.
    std::vector<std::string> MissingEntries();

 private:
    void EnsureLoaded();
    template <typename Function>
    Function Bound(Function& entry, const char* name);
    FARPROC Find(const char* name);

    const String folder_;
    runtime::win32::Library library_;
    bool isBound_ = false;  ///< the library has served an entry
    long(__stdcall* setString_)(char* key, char* value) = nullptr;
    long(__stdcall* getString_)(char* key) = nullptr;
    long(__stdcall* dataBase_)() = nullptr;
    long(__stdcall* getName_)(long handle) = nullptr;
};

}  // namespace kernel_api::win32
