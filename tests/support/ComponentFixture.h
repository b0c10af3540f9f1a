// The whole component below the COM edge, over an in-memory kernel, files and settings and the built-in reader; each
// test starts with a fresh process, so to speak.
#pragma once

#include "dialogs/frmQMXMsgBox.h"
#include "host/ProcessLife.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/BuiltInSplitter.h"
#include "routing/CommandInterpreter.h"
#include "runtime/Form.h"
#include "runtime/LoadedForms.h"
#include "services/MessageTexts.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InMemoryKernel.h"
#include "tests/support/RuntimeFixture.h"

namespace tests {

/// Base is HeadlessTest or RuntimeTest.
template <typename Base>
class ComponentOver : public Base {
 protected:
    ComponentOver() {
        reader_.UseLanguageFolder([] { return routing::LanguagePath; });
        kernel_api::UseKernel(&kernel_);
        kernel_api::UseReader(&reader_);
        kernel_api::UseSplitter(&splitter_);
        services::UseSuiteMessageBox(dialogs::AskWithSuiteBox);
    }
    ~ComponentOver() override {
        kernel_.StopFailing();
        while (runtime::Form* last = runtime::LoadedForms().LastToUnload()) last->Unload();
        services::UseSuiteMessageBox({});
        host::ReleaseProcess();
        kernel_api::UseSplitter(nullptr);
        kernel_api::UseReader(nullptr);
        kernel_api::UseKernel(nullptr);
    }

    /// What the kernel keeps under `key`, "(none)" without it.
    runtime::String Kept(runtime::StringView key) const { return kernel_.Kept(key).value_or(u"(none)"); }

    tests::InMemoryKernel kernel_;
    kernel_api::builtin::BuiltInReader reader_{this->memory_.files, this->memory_.settings, this->memory_.locale};
    kernel_api::builtin::BuiltInSplitter splitter_;
};

/// Everything in memory.
using HeadlessComponentTest = ComponentOver<HeadlessTest>;
/// With the build's own window system.
using ComponentTest = ComponentOver<RuntimeTest>;

}  // namespace tests
