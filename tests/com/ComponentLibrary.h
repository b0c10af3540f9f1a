// The component's own DLL, loaded as COM loads it, and instances that its class factory made.
#pragma once

#include <filesystem>

#include "runtime/win32/Handle.h"
#include "tests/com/ComTest.h"

namespace tests::com {

/// What sinks receive when the main form was unloaded.
inline constexpr char kShutdown[] = "K4TBACKPROCESS|SHUTDOWN";

/// The one that the build puts beside the tests.
std::filesystem::path ComponentDll();

class ComponentLibrary {
 public:
    /// Fails the test when the library does not load.
    explicit ComponentLibrary(const std::filesystem::path& path = ComponentDll());

    ComPtr<IClassFactory> ClassFactory() const;
    /// Fails the test when there is no instance.
    ComPtr<_clsQmxBackProcess> Create() const;
    /// For the machine.
    HRESULT Register() const;
    HRESULT Unregister() const;
    /// S_OK when the library may be freed.
    HRESULT CanUnload() const;

 private:
    template <typename Function>
    Function* Export(const char* name) const;

    runtime::win32::Library library_;
};

/// An instance of the registered library, as a client creates it. Fails the test when there is none.
ComPtr<_clsQmxBackProcess> CreateRegistered();
/// The caption of the loaded main form behind `instance`.
std::string CaptionOfForm(_clsQmxBackProcess* instance);
/// How many of the component's form windows the thread has.
int FormWindows(DWORD threadId);
/// Brings the main form up.
VARIANT_BOOL Load(_clsQmxBackProcess* instance);

}  // namespace tests::com
