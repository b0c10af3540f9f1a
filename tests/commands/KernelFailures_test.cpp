// Tests kernel libraries that lack one function each. A command that needs the function ends with a message and the
// shutdown. Only LZ shows no message.
#include <gmock/gmock.h>

#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "kernel_api/Suite.h"
#include "kernel_api/win32/KernelLibrary.h"
#include "routing/CommandInterpreter.h"
#include "runtime/LoadedForms.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/TestFolder.h"

namespace host {
namespace {

using ::testing::ElementsAre;

String Beside(StringView folder) {
    return tests::TestFolder() + u"\\commands\\" + String(folder);
}

/// Reads titles without the kernel, because these tests are about the message and not about titles.
class TitleReader : public kernel_api::builtin::BuiltInReader {
 public:
    using BuiltInReader::BuiltInReader;
    String TextAt(kernel_api::TextPointer /*pointer*/) override { return u"text"; }
};

/// Loads the real main form with a working kernel. Then the test uses the form with a kernel that lacks a function.
class KernelWithout : public tests::HeadlessComponentTest {
 protected:
    KernelWithout() {
        kernel_api::CurrentSuite().reader = &titles_;
        form_.EnsureLoaded();
    }
    ~KernelWithout() override {
        connection_.Disconnect();
        kernel_api::CurrentSuite().kernel = &kernel_;
        kernel_api::CurrentSuite().reader = &reader_;
    }

    void UseKernelWithout(StringView entry) {
        partial_ = std::make_unique<kernel_api::win32::KernelLibrary>(Beside(entry));
        kernel_api::CurrentSuite().kernel = partial_.get();
    }
    /// Returns the error that the command's sender gets, or 0.
    std::int32_t Execute(StringView command, StringView missing) {
        UseKernelWithout(missing);
        memory_.messageBox.answers = {1};
        return tests::ErrorOf([&] { form_.AP_ExeCmd(command); });
    }
    void ExpectShutdown() const {
        EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
        EXPECT_EQ(runtime::LoadedForms().Count(), 0U);
    }
    void ExpectMessageAbout(StringView entry) const {
        ASSERT_EQ(memory_.messageBox.shown.size(), 1U);
        const auto& message = memory_.messageBox.shown.front();
        EXPECT_TRUE(message.prompt.starts_with(u"Can't find DLL entry point: " + String(entry)));
        EXPECT_EQ(message.title, u"text");
    }

    TitleReader titles_{memory_.files, memory_.settings, memory_.locale};
    std::unique_ptr<kernel_api::win32::KernelLibrary> partial_;
    frmBackProcessMain& form_ = MainForm();
    std::vector<std::string> received_;
    frmBackProcessMain::NotifyClassEvent::Connection connection_ = form_.NotifyClass().Connect(
        [this](String&, String& command) { received_.push_back(runtime::ToUtf8(command)); });
};

TEST_F(KernelWithout, DB_DataBase_SaveShowsTheErrorAndShutsDown) {
    EXPECT_EQ(Execute(u"All,SAVE", u"DB_DataBase"), 0);
    ExpectMessageAbout(u"DB_DataBase");
    ExpectShutdown();
    EXPECT_EQ(routing::CurrentDesignName(), u"");
}

TEST_F(KernelWithout, O_GetName_OpenShowsTheErrorAndShutsDown) {
    EXPECT_EQ(Execute(u"All,OPEN", u"O_GetName"), 0);
    ExpectMessageAbout(u"O_GetName");
    ExpectShutdown();
}

TEST_F(KernelWithout, E_GetString_LzShowsNoMessageAndShutsDown) {
    EXPECT_EQ(Execute(u"All,LZ", u"E_GetString"), runtime::kDllEntryPointNotFound);
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    ExpectShutdown();
}

TEST_F(KernelWithout, E_SetString_ExShowsTheErrorAndShutsDown) {
    EXPECT_EQ(Execute(u"All,EX", u"E_SetString"), 0);
    ExpectMessageAbout(u"E_SetString");
    ExpectShutdown();
}

TEST_F(KernelWithout, E_SetString_LoadAndCreationFail) {
    form_.Unload();
    received_.clear();
    UseKernelWithout(u"E_SetString");
    EXPECT_EQ(tests::ErrorOf([this] { form_.EnsureLoaded(); }), runtime::kObjectWasUnloaded);
    ExpectShutdown();
    EXPECT_EQ(tests::ErrorOf([] { clsQmxBackProcess([](String&, String&) {}); }), runtime::kDllEntryPointNotFound);
}

TEST_F(KernelWithout, AnyFunction_CommandsThatDoNotNeedTheFunctionRun) {
    for (const StringView missing : {u"E_SetString", u"E_GetString", u"DB_DataBase", u"O_GetName"}) {
        for (const StringView command : {u"All,RD", u"All,UP", u"All,FMVHDLED,CUPL", u"All,NONE", u"Editor,SAVE"}) {
            EXPECT_EQ(Execute(command, missing), 0) << runtime::ToUtf8(missing) << ": " << runtime::ToUtf8(command);
        }
    }
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    EXPECT_THAT(received_, ElementsAre());
    EXPECT_TRUE(form_.IsLoaded());
}

}  // namespace
}  // namespace host
