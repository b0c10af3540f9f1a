// Kernel libraries that lack one entry each: the command that needs it ends in a message and in the shutdown.
#include <gtest/gtest.h>

#include "kernel_api/dev/BuiltInReader.h"
#include "kernel_api/dev/BuiltInSplitter.h"
#include "kernel_api/win32/KernelLibrary.h"
#include "routing/CommandInterpreter.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/HandledForm.h"
#include "tests/support/RuntimeFixture.h"

namespace routing {
namespace {

using runtime::String;
using runtime::StringView;

String Beside(StringView folder) {
    String path(MAX_PATH, u'\0');
    path.resize(GetModuleFileNameW(nullptr, runtime::win32::Wide(path.data()), MAX_PATH));
    return path.substr(0, path.rfind(u'\\') + 1).append(folder);
}

/// Titles would need the kernel, so they do not: the message is what is looked at.
class TitleReader : public kernel_api::dev::BuiltInReader {
 public:
    using BuiltInReader::BuiltInReader;
    String TextAt(kernel_api::TextPointer /*pointer*/) override { return u"text"; }
};

class KernelWithout : public tests::HeadlessTest {
 protected:
    KernelWithout() {
        kernel_api::UseReader(&reader_);
        kernel_api::UseSplitter(&splitter_);
    }
    ~KernelWithout() override {
        ResetCommandInterpreter();
        kernel_api::UseSplitter(nullptr);
        kernel_api::UseReader(nullptr);
        kernel_api::UseKernel(nullptr);
    }

    /// The error that the command's sender gets; 0 for none.
    std::int32_t Execute(StringView command, StringView missing) {
        kernel_api::win32::KernelLibrary kernel(Beside(missing));
        kernel_api::UseKernel(&kernel);
        const std::int32_t error = tests::ErrorOf([&] {
            ExecuteCommand(command, {form_, false, [this] { ++unloads_; }});
        });
        kernel_api::UseKernel(nullptr);
        return error;
    }

    TitleReader reader_{memory_.files, memory_.settings, memory_.locale};
    kernel_api::dev::BuiltInSplitter splitter_;
    tests::HandledForm form_;
    int unloads_ = 0;
};

TEST_F(KernelWithout, ItsDatabaseOrNamesShowsTheErrorAndUnloads) {
    for (const StringView missing : {u"DB_DataBase", u"O_GetName"}) {
        memory_.messageBox.answers = {1};
        memory_.messageBox.shown.clear();
        unloads_ = 0;
        EXPECT_EQ(Execute(u"All,SAVE", missing), 0);
        ASSERT_EQ(memory_.messageBox.shown.size(), 1U);
        const auto& message = memory_.messageBox.shown.front();
        EXPECT_TRUE(message.prompt.starts_with(u"Can't find DLL entry point: " + String(missing)));
        EXPECT_EQ(message.title, u"text");
        EXPECT_EQ(unloads_, 1);
        EXPECT_EQ(CurrentDesignName, u"");
    }
}

TEST_F(KernelWithout, ItsStringsHasNoTitleForTheMessageAndUnloadsAllTheSame) {
    EXPECT_EQ(Execute(u"All,LZ", u"E_GetString"), runtime::kDllEntryPointNotFound);
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    EXPECT_EQ(unloads_, 1);
}

TEST_F(KernelWithout, AnyEntryStillIgnoresWhatNeedsNone) {
    for (const StringView command : {u"All,RD", u"All,FMVHDLED,CUPL", u"Editor,SAVE"}) {
        EXPECT_EQ(Execute(command, u"DB_DataBase"), 0);
    }
    EXPECT_EQ(unloads_, 0);
}

}  // namespace
}  // namespace routing
