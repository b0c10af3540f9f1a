// The whole component below the COM edge, over an in-memory kernel, files and settings; each test starts with a fresh
// process, so to speak.
#pragma once

#include "host/Process.h"
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

    /// What the kernel keeps under `key`, "(none)" without it.
    runtime::String Kept(runtime::StringView key) const { return kernel_.Kept(key).value_or(u"(none)"); }

    InMemoryKernel kernel_;
    host::Process process_{this->ports_, kernel_};
    kernel_api::builtin::BuiltInReader& reader_ = process_.Reader();
};

/// Everything in memory.
using HeadlessComponentTest = ComponentOver<HeadlessTest>;
/// With the build's own window system.
using ComponentTest = ComponentOver<RuntimeTest>;

}  // namespace tests
