// Tests interruptions of the query dialog: errors, questions inside questions, other windows, and an unload by other
// code.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "dialogs/Qmxquery_test.h"
#include "kernel_api/Suite.h"
#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/Screen.h"

namespace dialogs {
namespace {

using runtime::headless::MemoryWindow;
using ::testing::ElementsAre;
using tests::Answer;
using tests::ErrorOf;
using tests::kNoAnswer;
using tests::Question;

using Query = QueryTest;

TEST_F(Query, UnloadedByOtherCode_IsCancel) {
    EXPECT_EQ(Ask({.values = {u"abc"}}, [](MemoryWindow&) { runtime::LoadedForms().At(0).Unload(); }), kNoAnswer);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(Query, NoFirstElement_FailsBeforeTheDialogShows) {
    Question question{.values = {}, .index = 4};
    EXPECT_EQ(ErrorOf([&] { tests::AskFor(question); }), runtime::kSubscriptOutOfRange);
    EXPECT_EQ(question.index, 4);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

/// Asks one question before each test. The next question fails before its dialog is shown, and must change nothing.
class QueryAfterAnAnswer : public QueryTest {
 protected:
    QueryAfterAnAnswer() {
        std::vector<String> values = {u"", u"A", u"B"};
        std::int32_t index = 1;
        Queue([](MemoryWindow& dialog) { Click(dialog, u"cmdAccept"); });
        dialog_.QUERY(u"Title", u"Name?", values, kList, index, true, u"More");
    }
    /// Asks a question that fails, checks that nothing has changed, and returns the error.
    std::int32_t ErrorOfNext() {
        std::vector<String> values = {u"abc  ", u"C"};
        std::int32_t index = 7;
        const std::int32_t error =
            ErrorOf([&] { dialog_.QUERY(u"Other", u"Which?", values, kText, index, false, u""); });
        EXPECT_EQ(values, (std::vector<String>{u"abc  ", u"C"}));
        EXPECT_EQ(index, 7);
        EXPECT_EQ(dialog_.LayoutHeight(), 2895);
        EXPECT_EQ(dialog_.Kind(), kList);
        EXPECT_EQ(dialog_.ResultIndex(), 2);
        EXPECT_EQ(dialog_.ResultText(), u"B");
        EXPECT_FALSE(dialog_.IsLoaded());
        return error;
    }

    Qmxquery dialog_;
};

TEST_F(QueryAfterAnAnswer, LayoutOverflows_NothingIsStored) {
    /// Returns a number of pieces whose height exceeds 32 bits. Records the form's title at the time of the call.
    struct ManyPieces : kernel_api::builtin::BuiltInSplitter {
        std::int32_t CountPieces(StringView, StringView) override {
            title = window->Last().caption;
            return std::numeric_limits<std::int32_t>::max();
        }
        runtime::headless::MemoryWindows* window = nullptr;
        String title;
    } splitter;
    splitter.window = &memory_.windows;
    kernel_api::CurrentSuite().splitter = &splitter;
    EXPECT_EQ(ErrorOfNext(), runtime::kOverflow);
    EXPECT_EQ(splitter.title, u"");
}

TEST_F(QueryAfterAnAnswer, WindowCannotBeMade_NothingIsStored) {
    memory_.windows.refuseWindows = 1;
    EXPECT_EQ(ErrorOfNext(), runtime::kOutOfMemory);
}

TEST_F(Query, IndexOutsideTheList_ErrorAndDialogIsClosed) {
    runtime::Form owner({.name = u"owner", .caption = u"", .inner = {3000, 1500}});
    owner.SetVisible(true);
    for (const std::int32_t kind : {3, 5}) {
        for (const std::int32_t index : {2, -2}) {
            Question question{.kind = kind, .values = {u"abc  ", u"A", u"B"}, .index = index};
            EXPECT_EQ(ErrorOf([&] { tests::AskFor(question); }), runtime::kInvalidPropertyValue);
            EXPECT_EQ(question.index, index);
            EXPECT_EQ(question.values[0], u"abc");
            EXPECT_EQ(runtime::LoadedForms().Count(), 1u);
            EXPECT_TRUE(memory_.windows.Last().enabled);
        }
    }
    EXPECT_EQ(Ask({.values = {u"abc"}}, PressEnter), (Answer{u"abc", 0}));
}

TEST_F(Query, ErrorDuringTheWait_AnswerIsNotStored) {
    runtime::SetMousePointer(runtime::kHourglassPointer);
    Question question{.values = {u"abc "}, .index = 7};
    Queue([](MemoryWindow&) {
        EXPECT_EQ(runtime::MousePointer(), runtime::kDefaultPointer);
        throw runtime::Error(runtime::kOverflow);
    });
    EXPECT_EQ(ErrorOf([&] { tests::AskFor(question); }), runtime::kOverflow);
    EXPECT_EQ(question.values[0], u"abc");
    EXPECT_EQ(question.index, 7);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    EXPECT_EQ(runtime::MousePointer(), runtime::kHourglassPointer);
}

TEST_F(Query, OtherWindowIsShownDuringTheDialog_IsDisabled) {
    runtime::Form other({.name = u"other", .caption = u"", .inner = {3000, 1500}});
    other.EnsureLoaded();
    MemoryWindow& otherWindow = memory_.windows.Last();
    Look({}, [&](MemoryWindow&) {
        other.SetVisible(true);
        EXPECT_FALSE(otherWindow.enabled);
    });
    EXPECT_TRUE(otherWindow.enabled);
}

TEST_F(Query, OpenDialog_RefusesAnotherQuestion) {
    Qmxquery dialog;
    std::vector<String> values = {u"first"};
    std::int32_t index = 0;
    Queue([&](MemoryWindow& window) {
        std::vector<String> others = {u"second  "};
        std::int32_t other = 5;
        EXPECT_EQ(ErrorOf([&] { dialog.QUERY(u"again", u"again", others, 4, other, true, u"again"); }),
                  runtime::kFormAlreadyDisplayed);
        EXPECT_EQ(others[0], u"second  ");
        EXPECT_EQ(window.caption, u"Title");
        EXPECT_THAT(ShownInputs(window), ElementsAre(u"txtText"));
        PressEnter(window);
    });
    EXPECT_EQ(dialog.QUERY(u"Title", u"Name?", values, kText, index, false, u""), u"first");
    EXPECT_EQ(index, 0);
}

}  // namespace
}  // namespace dialogs
