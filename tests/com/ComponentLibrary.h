// The component's own DLL, loaded as COM loads it, and instances from its class factory.
#pragma once

#include <filesystem>

#include "runtime/win32/Handle.h"
#include "tests/com/ComTest.h"

namespace tests::com {

/// The event that sinks receive when the main form was unloaded.
inline constexpr char kShutdown[] = "K4TBACKPROCESS|SHUTDOWN";

/// The DLL that the build puts beside the tests.
std::filesystem::path ComponentDll();

class ComponentLibrary {
 public:
    /// Fails the test if the library cannot be loaded.
    explicit ComponentLibrary(const std::filesystem::path& path = ComponentDll());

    ComPtr<IClassFactory> ClassFactory() const;
    /// Fails the test if there is no instance.
    ComPtr<_clsQmxBackProcess> Create() const;
    /// Registers for all users of the machine.
    HRESULT Register() const;
    HRESULT Unregister() const;
    /// S_OK if the library may be freed.
    HRESULT CanUnload() const;

 private:
    template <typename Function>
    Function* Export(const char* name) const;

    runtime::win32::Library library_;
};

/// Creates an instance of the registered library, as a client does. Fails the test if there is none.
ComPtr<_clsQmxBackProcess> CreateRegistered();
/// The caption of the instance's main form, which must be loaded.
std::string CaptionOfForm(_clsQmxBackProcess* instance);
/// The number of the component's form windows of a thread.
int FormWindows(DWORD threadId);
/// Calls the instance's Load, which loads the main form.
VARIANT_BOOL Load(_clsQmxBackProcess* instance);

}  // namespace tests::com
