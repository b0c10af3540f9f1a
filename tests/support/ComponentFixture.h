// Fixtures that create the whole component without COM. The kernel, the files and the settings are in memory. Each test
// starts with new process-wide state.
#pragma once

#include "host/Composition.h"
#include "kernel_api/Suite.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InMemoryKernel.h"
#include "tests/support/RuntimeFixture.h"

namespace tests {

/// `Base` must be HeadlessTest or RuntimeTest.
template <typename Base>
class ComponentOver : public Base {
 protected:
    ~ComponentOver() override { kernel_.StopFailing(); }

    /// Returns the kernel's value of `key`, or "(none)" if `key` has no value.
    runtime::String Kept(runtime::StringView key) const { return kernel_.Kept(key).value_or(u"(none)"); }

    InMemoryKernel kernel_;
    host::Composition composition_{this->ports_, kernel_};
    kernel_api::builtin::BuiltInReader& reader_ = composition_.Reader();
};

/// With this fixture, windows are in memory, too.
using HeadlessComponentTest = ComponentOver<HeadlessTest>;
/// With this fixture, windows are real in the Windows build, and in memory elsewhere.
using ComponentTest = ComponentOver<RuntimeTest>;

}  // namespace tests
