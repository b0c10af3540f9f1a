#include "host/Composition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "host/frmBackProcessMain.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"

namespace host {
namespace {

using ::testing::ElementsAre;
using tests::ErrorOf;

void ExpectNothingIsChosen() {
    EXPECT_EQ(ErrorOf([] { runtime::CurrentPorts(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(ErrorOf([] { kernel_api::CurrentKernel(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(ErrorOf([] { kernel_api::CurrentReader(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(ErrorOf([] { kernel_api::CurrentSplitter(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(ErrorOf([] { services::Values(); }), runtime::kObjectVariableNotSet);
}

TEST(CompositionEnd, FormsAndValuesAreInUse_EverythingIsRemoved) {
    tests::MemoryPorts memory;
    const runtime::Ports ports = memory.All();
    tests::InMemoryKernel kernel;
    tests::HandledForm dialog;
    dialog.refusesUnload = true;
    ExpectNothingIsChosen();
    {
        const Composition composition(ports, kernel);
        MainForm().EnsureLoaded();
        dialog.EnsureLoaded();
        services::Values().languagePath = u"C:\\de";
        EXPECT_EQ(memory.process.HeldClaims(), 1);
    }
    ExpectNothingIsChosen();
    EXPECT_EQ(LoadedWindowCount(), 0U);
    EXPECT_EQ(memory.process.HeldClaims(), 0);
    EXPECT_EQ(kernel.Kept(u"K4TBACKPROCESS"), u"");
    const Composition next(ports, kernel);
    EXPECT_EQ(services::Values().languagePath, u"");
    EXPECT_FALSE(MainFormExists());
}

class AbandoningForms : public tests::HeadlessComponentTest {
 protected:
    tests::HandledForm first_{u"first"};
    tests::HandledForm second_{u"second"};
};

TEST_F(AbandoningForms, FormsAreLoaded_AllAreAbandonedWithoutHandlers) {
    first_.EnsureLoaded();
    second_.EnsureLoaded();
    second_.refusesQuery = true;
    EXPECT_EQ(LoadedWindowCount(), 2u);
    AbandonForms();
    EXPECT_EQ(LoadedWindowCount(), 0u);
    EXPECT_THAT(first_.log, ElementsAre("load"));
    EXPECT_THAT(second_.log, ElementsAre("load"));
}

TEST_F(AbandoningForms, MainFormIsAbandoned_CanBeLoadedAgain) {
    int events = 0;
    const auto connection = MainForm().NotifyClass().Connect([&](String&, String&) { ++events; });
    MainForm().EnsureLoaded();
    AbandonForms();
    EXPECT_EQ(events, 0) << "no SHUTDOWN";
    EXPECT_FALSE(MainForm().IsLoaded());
    EXPECT_EQ(memory_.process.HeldClaims(), 0);
    MainForm().EnsureLoaded();
    EXPECT_EQ(LoadedWindowCount(), 1u);
}

/// Calls `ask`, which opens a question in the process's shared dialog. Abandons the forms while the question is open.
template <typename Dialog>
void AbandonWhileAsking(runtime::headless::MemoryWindows& windows, const std::function<void()>& ask) {
    std::unique_ptr<Dialog> asking;
    windows.Post([&] {
        asking.reset(dialogs::SharedDialog<Dialog>());
        EXPECT_TRUE(asking->HasOpenPrompt());
        AbandonForms();
        EXPECT_EQ(dialogs::SharedDialog<Dialog>(), nullptr);
        EXPECT_EQ(LoadedWindowCount(), 0u);
        asking->Hide();
    });
    ask();
}

TEST_F(AbandoningForms, MessageBoxIsOpen_NextQuestionGetsANewBox) {
    AbandonWhileAsking<dialogs::frmQMXMsgBox>(memory_.windows, [] {
        EXPECT_EQ(dialogs::AskWithSuiteBox(u"Overwrite?", 0, u"Title"), dialogs::frmQMXMsgBox::kCancel);
    });
    memory_.windows.Post([] {
        EXPECT_TRUE(dialogs::SharedDialog<dialogs::frmQMXMsgBox>()->HasOpenPrompt());
        dialogs::SharedDialog<dialogs::frmQMXMsgBox>()->Hide();
    });
    dialogs::AskWithSuiteBox(u"Overwrite?", 0, u"Title");
}

TEST_F(AbandoningForms, QueryDialogIsOpen_NextQuestionGetsANewDialog) {
    std::vector<String> values{u"text"};
    std::int32_t index = 0;
    const auto ask = [&] { dialogs::AskQuery(u"Title", u"Name?", values, dialogs::kText, index, false, u""); };
    AbandonWhileAsking<dialogs::Qmxquery>(memory_.windows, ask);
    memory_.windows.Post([] {
        EXPECT_TRUE(dialogs::SharedDialog<dialogs::Qmxquery>()->HasOpenPrompt());
        dialogs::SharedDialog<dialogs::Qmxquery>()->Hide();
    });
    ask();
}

}  // namespace
}  // namespace host
