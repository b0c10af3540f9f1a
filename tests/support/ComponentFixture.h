// The whole component below COM, with the kernel, files and settings in memory. Each test starts with fresh
// process-wide state.
#pragma once

#include "host/Composition.h"
#include "kernel_api/Suite.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InMemoryKernel.h"
#include "tests/support/RuntimeFixture.h"

namespace tests {

/// Base is HeadlessTest or RuntimeTest.
template <typename Base>
class ComponentOver : public Base {
 protected:
    ~ComponentOver() override { kernel_.StopFailing(); }

    /// The kernel's value of `key`, or "(none)" if it has none.
    runtime::String Kept(runtime::StringView key) const { return kernel_.Kept(key).value_or(u"(none)"); }

    InMemoryKernel kernel_;
    host::Composition composition_{this->ports_, kernel_};
    kernel_api::builtin::BuiltInReader& reader_ = composition_.Reader();
};

/// The window system is in memory, too.
using HeadlessComponentTest = ComponentOver<HeadlessTest>;
/// The window system is the build's own.
using ComponentTest = ComponentOver<RuntimeTest>;

}  // namespace tests
