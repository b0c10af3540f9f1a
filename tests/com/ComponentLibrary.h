// Loads the component's own DLL as COM does, and creates instances with its class factory.
#pragma once

#include <filesystem>

#include "runtime/win32/Handle.h"
#include "tests/com/ComTest.h"

namespace tests::com {

/// The event that sinks receive after the main form was unloaded.
inline constexpr char kShutdown[] = "K4TBACKPROCESS|SHUTDOWN";

/// Returns the path of the DLL, which the build puts into the tests' folder.
std::filesystem::path ComponentDll();

class ComponentLibrary {
 public:
    /// Fails the test if the library cannot be loaded.
    explicit ComponentLibrary(const std::filesystem::path& path = ComponentDll());

    ComPtr<IClassFactory> ClassFactory() const;
    /// Creates an instance. Fails the test if that is impossible.
    ComPtr<_clsQmxBackProcess> Create() const;
    /// Registers the library for all users of the machine.
    HRESULT Register() const;
    HRESULT Unregister() const;
    /// Returns S_OK if the library may be freed.
    HRESULT CanUnload() const;

 private:
    template <typename Function>
    Function* Export(const char* name) const;

    runtime::win32::Library library_;
};

/// Creates an instance of the registered library, as a client does. Fails the test if that is impossible.
ComPtr<_clsQmxBackProcess> CreateRegistered();
/// Returns the caption of the instance's main form. The form must be loaded.
std::string CaptionOfForm(_clsQmxBackProcess* instance);
/// Returns how many of the component's form windows belong to the thread.
int FormWindows(DWORD threadId);
/// Calls the instance's Load, which loads the main form.
VARIANT_BOOL Load(_clsQmxBackProcess* instance);

}  // namespace tests::com
