// Tests a command that fails when there is too little memory to report the error. The command must still unload all
// forms. Also tests a message that is traced when there is too little memory. The message must still be shown.
#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <optional>
#include <string_view>

#include "kernel_api/Splitter.h"
#include "kernel_api/Suite.h"
#include "routing/CommandInterpreter.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/ScopeGuard.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "tests/commands/FailingMemory.h"
#include "tests/support/ComponentFixture.h"
#include "trace/Output.h"
#include "trace/TracedDialogs.h"

namespace routing {
namespace {

/// The field parsers of this splitter fail and make all later allocations fail.
class ShortSplitter : public kernel_api::Splitter {
 public:
    std::unique_ptr<kernel_api::FieldParser> MakeFieldParser() override { return std::make_unique<Parser>(); }
    std::int32_t CountPieces(runtime::StringView, runtime::StringView) override { return 1; }

 private:
    class Parser : public kernel_api::FieldParser {
     public:
        void SetText(runtime::StringView) override {}
        runtime::StringView Field(std::int32_t) override {
            const runtime::ScopeGuard beginsWithTheError([] { tests::MakeMemoryShort(true); });
            throw runtime::Error(runtime::kFileNotFound, runtime::String(100, u'x'));
        }
    };
};

class ShortMemory : public tests::HeadlessComponentTest {
 protected:
    ShortMemory() { kernel_api::CurrentSuite().splitter = &splitter_; }
    ~ShortMemory() override { tests::MakeMemoryShort(false); }

    ShortSplitter splitter_;
    CommandInterpreter interpreter_;
    runtime::Form form_{{.name = u"short", .caption = u"Short", .inner = {3000, 1500}}};
};

TEST_F(ShortMemory, FailedCommand_StillUnloadsAllForms) {
    form_.EnsureLoaded();
    bool isReported = false;
    try {
        interpreter_.ReportFailure(interpreter_.Execute(u"All,SAVE", form_, false));
    } catch (const std::bad_alloc&) {
        isReported = true;
    }
    tests::MakeMemoryShort(false);
    EXPECT_TRUE(isReported);
    EXPECT_FALSE(form_.IsLoaded());
}

class CountingOutput : public trace::Output {
 public:
    void Write(std::string_view) noexcept override {}
    void CountLost() noexcept override { ++lost; }
    int lost = 0;
};

TEST_F(ShortMemory, TracedMessage_IsShownAndItsLinesAreLost) {
    CountingOutput output;
    const services::SuiteMessageBox box = [](runtime::StringView, std::int32_t, runtime::StringView) { return 8; };
    services::Values().suiteMessageBox = trace::Traced(output, box);
    const std::optional<runtime::String> title = u"T";
    tests::MakeMemoryShort(true);
    std::int32_t answer = 0;
    try {
        answer = services::ShowMessage(u"Overwrite?", services::kSuiteBox, title);
    } catch (const std::bad_alloc&) {
        answer = -1;
    }
    tests::MakeMemoryShort(false);
    EXPECT_EQ(answer, 8);
    EXPECT_EQ(output.lost, 2);
}

}  // namespace
}  // namespace routing
