// Tests the main form together with other forms, and with errors: the order of its shutdown, the loops that unload all
// forms, and loads that fail.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/frmBackProcessMain.h"
#include "runtime/LoadedForms.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"
#include "tests/support/ReaderInUse.h"
#include "tests/support/RecordingReader.h"

namespace host {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
using tests::ErrorOf;

/// Records the main form's events. Tests may load two dialogs.
template <typename Base>
class MainFormBesideOver : public Base {
 protected:
    MainFormBesideOver() {
        connection_ = form_.NotifyClass().Connect([this](String& /*module*/, String& command) {
            received_.push_back(runtime::ToUtf8(command));
            if (onEvent_) onEvent_();
        });
    }

    static bool NoneLoaded() { return runtime::LoadedForms().Count() == 0; }
    void FailLoads() { this->kernel_.FailOn("E_GetString(AllAps)", runtime::Error(runtime::kFileNotFound)); }
    std::int32_t ErrorOfLoad() {
        return ErrorOf([this] { form_.EnsureLoaded(); });
    }

    frmBackProcessMain& form_ = MainForm();
    tests::HandledForm dialog_{u"dialog"};
    tests::HandledForm second_{u"second"};
    std::vector<std::string> received_;
    std::function<void()> onEvent_;
    frmBackProcessMain::NotifyClassEvent::Connection connection_;
};

using Shutdown = MainFormBesideOver<tests::ComponentTest>;

TEST_F(Shutdown, ClearsThePublishedStateThenUnloadsDialogsThenRaisesTheEvent) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    EXPECT_NE(Kept(u"K4TBACKPROCESS"), u"");
    const auto recordIsWithdrawn = [&] { EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u""); };
    dialog_.onUnload = second_.onUnload = recordIsWithdrawn;
    onEvent_ = [&] {
        EXPECT_FALSE(dialog_.IsLoaded());
        EXPECT_FALSE(second_.IsLoaded());
        EXPECT_TRUE(form_.IsLoaded());
    };
    form_.Unload();
    EXPECT_THAT(dialog_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(second_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Shutdown, DialogLoadedLast_IsUnloadedFirst) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    second_.onUnload = [&] { EXPECT_TRUE(dialog_.IsLoaded()); };
    dialog_.onUnload = [&] { EXPECT_FALSE(second_.IsLoaded()); };
    form_.Unload();
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Shutdown, StartedInADialogsUnload_Completes) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    dialog_.onUnload = [&] { form_.Unload(); };
    dialog_.Unload();
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(dialog_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(second_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

TEST_F(Shutdown, DialogRefusesToUnload_DialogStaysLoaded) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    dialog_.refusesUnload = true;
    form_.Unload();
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_TRUE(dialog_.IsLoaded());
    EXPECT_THAT(dialog_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

using ShutdownInMemory = MainFormBesideOver<tests::HeadlessComponentTest>;

// The second dialog is always the last form. Each round unloads the second dialog, and a posted event loads it again.
// The first dialog keeps the loop running.
TEST_F(ShutdownInMemory, DialogIsReloadedAfterEachUnload_LoopEnds) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    int unloads = 0;
    second_.onUnload = [&] {
        ASSERT_LT(++unloads, 1000) << "the loop does not end";
        memory_.windows.Post([this] { second_.EnsureLoaded(); });
    };
    form_.Unload();
    EXPECT_TRUE(NoneLoaded());
    EXPECT_EQ(unloads, 100);
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

using FailingLoad = MainFormBesideOver<tests::ComponentTest>;

TEST_F(FailingLoad, EarlierInstanceAndFailingListener_ErrorIsHidden) {
    memory_.process.SetEarlierInstance(true);
    onEvent_ = [] { throw runtime::Error(runtime::kTypeMismatch); };
    EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded);
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

TEST_F(FailingLoad, KernelFailsInTheShutdown_DialogsAreUnloaded) {
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    FailLoads();
    kernel_.FailOn("E_SetString", runtime::Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded);
    EXPECT_TRUE(NoneLoaded());
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    EXPECT_THAT(dialog_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(FailingLoad, DialogFailsToUnload_ErrorIsHidden) {
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    second_.onUnload = [] { throw runtime::Error(runtime::kOverflow); };
    FailLoads();
    EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded);
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(FailingLoad, StartedInADialogsUnload_Completes) {
    dialog_.EnsureLoaded();
    second_.EnsureLoaded();
    FailLoads();
    dialog_.onUnload = [&] { EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded); };
    dialog_.Unload();
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(dialog_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(second_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(FailingLoad, DialogRefusesToUnload_DialogStaysLoaded) {
    dialog_.EnsureLoaded();
    dialog_.refusesQuery = true;
    FailLoads();
    EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_TRUE(dialog_.IsLoaded());
}

using FailingLoadInMemory = MainFormBesideOver<tests::HeadlessComponentTest>;

TEST_F(FailingLoadInMemory, PendingEventsRunAfterEachUnload) {
    FailLoads();
    bool ran = false;
    memory_.windows.Post([&] {
        ran = true;
        EXPECT_FALSE(form_.IsLoaded());
    });
    EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded);
    EXPECT_TRUE(ran);
}

TEST_F(FailingLoadInMemory, PendingEventLoadsAForm_FormIsUnloaded) {
    FailLoads();
    memory_.windows.Post([&] { dialog_.EnsureLoaded(); });
    ErrorOfLoad();
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(dialog_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(FailingLoadInMemory, DialogRefusesToUnload_IsAskedAgainLater) {
    dialog_.EnsureLoaded();
    dialog_.refusesQuery = true;
    // The main form's own unload makes the first query. The loop over all forms makes the second query.
    int queries = 0;
    dialog_.onQueryUnload = [&] {
        if (++queries == 2) memory_.windows.Post([&] { second_.EnsureLoaded(); });
    };
    second_.onUnload = [&] { dialog_.refusesQuery = false; };
    FailLoads();
    ErrorOfLoad();
    EXPECT_EQ(queries, 3);
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(FailingLoadInMemory, PendingEventFails_ErrorIsHidden) {
    FailLoads();
    memory_.windows.Post([] { throw runtime::Error(runtime::kOverflow); });
    EXPECT_EQ(ErrorOfLoad(), runtime::kObjectWasUnloaded);
    EXPECT_TRUE(NoneLoaded());
}

using MainFormTexts = MainFormBesideOver<tests::HeadlessComponentTest>;

TEST_F(MainFormTexts, CaptionsAreLookedUpByTheirIdentifiers) {
    tests::RecordingReader recording(reader_);
    const tests::ReaderInUse inUse(recording);
    form_.EnsureLoaded();
    EXPECT_THAT(recording.Asked(), ElementsAre(Pair(u"Pelorix Background Processing Application", u"LOC"),
                                               Pair(u"Pelorix Background process ", u"LOC"),
                                               Pair(u"Pelorix Background Processing Application", u"561")));
}

}  // namespace
}  // namespace host
