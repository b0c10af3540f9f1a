#include "services/QMXHLP.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "runtime/Error.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"

namespace services {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Call = runtime::headless::RecordingHelp::Call;

class HelpTest : public tests::HeadlessComponentTest {
 protected:
    HelpTest() { Values().helpFilePath = u"D:\\Pelorix\\Marlentine.HLP"; }

    static tests::HandledForm& MakeMainForm() {
        Values().forms.main = std::make_unique<tests::HandledForm>();
        return static_cast<tests::HandledForm&>(*Values().forms.main);
    }
    const std::vector<Call>& Calls() const { return memory_.help.calls; }
    void ShowTopic(std::int16_t wanted = -1) { ShowHelpTopic(u"", 0, wanted); }
};

/// A help viewer that runs the test's code during each call.
class InterruptedHelp : public runtime::headless::RecordingHelp {
 public:
    void OpenContents(runtime::NativeHandle owner, StringView file) override {
        RecordingHelp::OpenContents(owner, file);
        if (onCall) onCall();
    }
    void CloseAll(runtime::NativeHandle owner) override {
        RecordingHelp::CloseAll(owner);
        if (onCall) onCall();
    }

    std::function<void()> onCall;
};

class InterruptedHelpTest : public HelpTest {
 protected:
    InterruptedHelpTest() { runtime::UsePorts(&interruptedPorts_); }
    ~InterruptedHelpTest() override { runtime::UsePorts(&ports_); }

    InterruptedHelp help_;
    runtime::Ports interruptedPorts_ = tests::WithPort(ports_, help_);
};

const Call kOpened{0, u"D:\\Pelorix\\Marlentine.chm"};

TEST_F(HelpTest, Contents_OpenTheCompiledFile) {
    ShowHelpContents();
    EXPECT_THAT(Calls(), ElementsAre(kOpened));
    EXPECT_EQ(Values().helpIsOpen, 0);
}

TEST_F(HelpTest, WantedTopic_OpensTheContentsAndSetsTheFlag) {
    ShowTopic();
    EXPECT_THAT(Calls(), ElementsAre(kOpened));
    EXPECT_EQ(Values().helpIsOpen, -1);
}

TEST_F(HelpTest, AnyNonZeroWanted_OpensHelp) {
    ShowTopic(1);
    EXPECT_THAT(Calls(), ElementsAre(kOpened));
}

TEST_F(HelpTest, WantedIsZero_DoesNothing) {
    ShowTopic(0);
    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_EQ(Values().helpIsOpen, 0);
}

TEST_F(HelpTest, FileAndTopic_AreIgnored) {
    std::int16_t wanted = -1;
    ShowHelpTopic(u"C:\\other.chm", 4711, wanted);
    EXPECT_THAT(Calls(), ElementsAre(kOpened));
    EXPECT_EQ(wanted, -1);
}

TEST_F(HelpTest, MainFormUnloaded_IsLoadedForItsWindow) {
    tests::HandledForm& form = MakeMainForm();
    ShowHelpContents();
    EXPECT_TRUE(form.IsLoaded());
    EXPECT_THAT(Calls(), ElementsAre(Call{form.Handle(), kOpened.opened}));
}

TEST_F(HelpTest, LastThreeCharactersAreReplaced) {
    Values().helpFilePath = u"abc";
    ShowHelpContents();
    Values().helpFilePath = u"C:\\help";
    ShowHelpContents();
    EXPECT_THAT(Calls(), ElementsAre(Call{0, u"chm"}, Call{0, u"C:\\hchm"}));
}

TEST_F(HelpTest, NameShorterThanThreeCharacters_IsError5) {
    Values().helpFilePath = u"ab";
    EXPECT_EQ(tests::ErrorOf([] { ShowHelpContents(); }), runtime::kInvalidProcedureCall);
    EXPECT_EQ(tests::ErrorOf([this] { ShowTopic(); }), runtime::kInvalidProcedureCall);
    ShowTopic(0);
    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_EQ(Values().helpIsOpen, 0);
}

TEST_F(HelpTest, HelpOfATopic_IsClosedOnce) {
    ShowTopic();
    ShowTopic();
    memory_.help.calls.clear();
    CloseHelp(42);
    CloseHelp(42);
    EXPECT_THAT(Calls(), ElementsAre(Call{42, std::nullopt}));
}

TEST_F(HelpTest, HelpContents_AreNotClosed) {
    ShowHelpContents();
    CloseHelp(42);
    EXPECT_THAT(Calls(), ElementsAre(kOpened));
}

TEST_F(HelpTest, HelpOpenedAgain_IsClosedAgain) {
    ShowTopic();
    CloseHelp(42);
    ShowTopic();
    memory_.help.calls.clear();
    CloseHelp(43);
    EXPECT_THAT(Calls(), ElementsAre(Call{43, std::nullopt}));
}

TEST_F(InterruptedHelpTest, ViewerFails_HelpIsClosedLater) {
    help_.onCall = [] { throw runtime::Error(runtime::kInternalError); };
    EXPECT_EQ(tests::ErrorOf([this] { ShowTopic(); }), runtime::kInternalError);
    help_.onCall = {};
    CloseHelp(42);
    EXPECT_THAT(help_.calls, ElementsAre(kOpened, Call{42, std::nullopt}));
}

TEST_F(InterruptedHelpTest, CloseWhileOpening_NextCloseClosesTheHelp) {
    help_.onCall = [this] {
        help_.onCall = {};
        CloseHelp(42);
    };
    ShowTopic();
    CloseHelp(43);
    EXPECT_THAT(help_.calls, ElementsAre(kOpened, Call{42, std::nullopt}, Call{43, std::nullopt}));
}

TEST_F(InterruptedHelpTest, CloseFails_NextCloseDoesNothing) {
    ShowTopic();
    help_.onCall = [] { throw runtime::Error(runtime::kInternalError); };
    EXPECT_EQ(tests::ErrorOf([] { CloseHelp(42); }), runtime::kInternalError);
    CloseHelp(43);
    EXPECT_THAT(help_.calls, ElementsAre(kOpened, Call{42, std::nullopt}));
}

}  // namespace
}  // namespace services
