// Calls the suite's kernel in its library, QmxKrn2K.dll. The first call loads the library. An entry is looked up at its
// first call. If a step fails, the next call repeats it, because the library may be installed later.
//
// One thread at a time may use an object. A library that lacks the first requested entry is released at once. Any other
// library stays loaded until the object is destroyed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kernel_api/Kernel.h"
#include "runtime/win32/Handle.h"

namespace kernel_api::win32 {

enum class KernelPlace {
    kAskedFor,  ///< the development kernel, requested by the environment variable
    kBesideComponent,
    kProgramFolder,
    kSystemFolder,
    kDevelopmentFolder,  ///< the development kernel, because no other kernel exists
};

struct FoundKernel {
    String path;  ///< full path
    KernelPlace place;
};

/// The development kernel's folder, relative to the component's folder.
inline constexpr const char16_t* kDevelopmentFolder = u"dev";

/// The environment variable that requests the development kernel. With the value 1, no other kernel is tried.
inline constexpr const wchar_t* kAskForDevelopmentKernel = L"K4TBACKPROCESS_DEVELOPMENT_KERNEL";

/// Finds the kernel library for a component in `componentFolder` and a program in `programFolder`. If the environment
/// variable requests the development kernel, looks only for that kernel. Otherwise searches the other places in the
/// order of KernelPlace and skips empty folders. Returns no value if no place has the file. Does not search the current
/// folder or PATH.
std::optional<FoundKernel> FindKernel(const String& componentFolder, const String& programFolder);

/// Each call can raise error 53 (no library), 48 (the library does not load) or 453 (the library lacks the entry).
class KernelLibrary : public Kernel {
 public:
    /// `folder` is the component's folder; see FindKernel.
    explicit KernelLibrary(String folder);

    void E_SetString(StringView key, String& value) override;
    TextPointer E_GetString(StringView key) override;
    std::int32_t DB_DataBase() override;
    TextPointer O_GetName(std::int32_t handle) override;

    /// Loads the library if necessary and returns its full path. Raises error 53 or 48.
    String Path();
    /// Loads the library if necessary and returns the names of its missing entries. Raises error 53 or 48.
    std::vector<std::string> MissingEntries();

 private:
    void EnsureLoaded();
    template <typename Function>
    Function Bound(Function& entry, const char* name);
    FARPROC Find(const char* name);

    const String folder_;
    runtime::win32::Library library_;
    bool isBound_ = false;  ///< true if an entry of the library was found
    long(__stdcall* setString_)(char* key, char* value) = nullptr;
    long(__stdcall* getString_)(char* key) = nullptr;
    long(__stdcall* dataBase_)() = nullptr;
    long(__stdcall* getName_)(long handle) = nullptr;
};

}  // namespace kernel_api::win32
