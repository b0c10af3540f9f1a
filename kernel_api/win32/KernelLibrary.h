// The suite's kernel in its own library, QmxKrn2K.dll. It is loaded at the first call, each entry is looked up when it
// is first needed, and what failed is tried again at the next call: the library may arrive later.
//
// For one thread at a time. The library stays loaded, and the addresses that it handed out hold, while this lives.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kernel_api/Kernel.h"
#include "runtime/win32/Handle.h"

namespace kernel_api::win32 {

/// Where a kernel library can be.
enum class KernelPlace {
    kAskedFor,  ///< the development kernel, because the environment asks for it
    kBesideComponent,
    kProgramFolder,
    kSystemFolder,
    kDevelopmentFolder,  ///< the development kernel, because there is no other
};

struct FoundKernel {
    String path;  ///< full
    KernelPlace place;
};

/// The development kernel below the component's folder.
inline constexpr const char16_t* kDevelopmentFolder = u"dev";

/// The environment variable that asks for the development kernel: with the value 1 no other kernel is looked for.
inline constexpr const wchar_t* kAskForDevelopmentKernel = L"K4TBACKPROCESS_DEVELOPMENT_KERNEL";

/// The library that a component in `componentFolder` loads in a program in `programFolder`. The places are looked
/// through in the order of KernelPlace; an empty folder is passed over. None if there is no library in any of them.
/// Neither the current folder nor PATH is one of the places.
std::optional<FoundKernel> FindKernel(const String& componentFolder, const String& programFolder);

/// Errors of all calls: 53 (no library), 48 (it will not load), 453 (it lacks the entry).
class KernelLibrary : public Kernel {
 public:
    /// `folder` is the component's. See FindKernel for where else the library is looked for.
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
