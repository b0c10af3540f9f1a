#include "host/UnattendedDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/Qmxquery.h"
#include "host/Composition.h"
#include "host/clsQmxBackProcess.h"
#include "runtime/Error.h"
#include "services/MessageTexts.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InMemoryKernel.h"
#include "tests/support/Question.h"
#include "tests/support/RuntimeFixture.h"

namespace host {
namespace {

using runtime::String;
using services::ShowMessage;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

constexpr int kRefused = 1000;

/// A process that is composed for a run without a user. The window system fails to make any window.
class UnattendedRun : public tests::HeadlessTest {
 protected:
    UnattendedRun() {
        unattended_.ReplaceSuiteDialogs();
        memory_.windows.refuseWindows = kRefused;
    }
    ~UnattendedRun() override {
        EXPECT_EQ(memory_.windows.refuseWindows, kRefused) << "the component tried to make a window";
        EXPECT_THAT(memory_.messageBox.shown, IsEmpty());
    }

    tests::InMemoryKernel kernel_;
    std::vector<std::string> lines_;
    UnattendedDialogs unattended_{[this](const String& line) { lines_.push_back(runtime::ToUtf8(line)); }};
    const runtime::Ports unattendedPorts_ = tests::WithPort(ports_, unattended_);
    Composition composition_{unattendedPorts_, kernel_};
};

TEST_F(UnattendedRun, SystemBox_IsAnsweredCancelOrElseOkNoOrAbort) {
    // Sets of buttons: OK; OK/Cancel; Abort/Retry/Ignore; Yes/No/Cancel; Yes/No; Retry/Cancel; Cancel/Try
    // Again/Continue.
    const std::vector<std::int32_t> answers = {1, 2, 3, 2, 7, 2, 2};
    for (std::int32_t buttons = 0; buttons < 7; ++buttons) {
        const auto answer = answers[static_cast<std::size_t>(buttons)];
        // Icons, default buttons, modality and the help button do not change the answer.
        for (const std::int32_t others : {0, 48, 0x100, 0x200, 0x1000, 0x4000}) {
            EXPECT_EQ(ShowMessage(u"Overwrite?", buttons | others, u"T"), answer) << buttons << ' ' << others;
        }
    }
    EXPECT_EQ(lines_.size(), 7U * 6);
}

TEST_F(UnattendedRun, UnknownSetOfButtons_IsError5) {
    EXPECT_EQ(ErrorOf([] { ShowMessage(u"Overwrite?", 7, u"T"); }), runtime::kInvalidProcedureCall);
    EXPECT_THAT(lines_, IsEmpty());
}

TEST_F(UnattendedRun, SuiteBox_IsAnsweredCancel) {
    for (const std::int32_t first : {0, 0x100, 0x200, 0x300}) {
        EXPECT_EQ(ShowMessage(u"Overwrite?", services::kSuiteBox | first | 4, u"T"), 2);
    }
    ASSERT_EQ(lines_.size(), 4U);
    EXPECT_EQ(lines_[0], "K4TBackProcess: unattended, message answered with Cancel: title=[T] prompt=[Overwrite?]");
}

TEST_F(UnattendedRun, EachKindOfQuestion_IsAnsweredCancel) {
    for (std::int32_t kind = 0; kind <= 9; ++kind) {
        tests::Question question{.kind = kind, .values = {u"R1  ", u"A", u"B"}, .index = 1, .button = u"More"};
        EXPECT_EQ(tests::AskFor(question), tests::kNoAnswer) << kind;
        EXPECT_THAT(question.values, ElementsAre(u"", u"A", u"B"));
    }
    ASSERT_EQ(lines_.size(), 10U);
    EXPECT_EQ(lines_[0], "K4TBackProcess: unattended, question answered with Cancel: title=[Title] prompt=[Name?]");
}

TEST_F(UnattendedRun, QuestionThatTheDialogRefuses_IsAnError) {
    std::vector<String> values;
    std::int32_t index = -1;
    const auto ask = [&](std::int32_t kind) { dialogs::AskQuery(u"", u"", values, kind, index, false, u""); };
    EXPECT_EQ(ErrorOf([&] { ask(dialogs::kText); }), runtime::kSubscriptOutOfRange);
    values = {u"", u"A"};
    for (const std::int32_t kind : {dialogs::kDropDown, dialogs::kList}) {
        for (const std::int32_t outside : {-2, 1}) {
            index = outside;
            EXPECT_EQ(ErrorOf([&] { ask(kind); }), runtime::kInvalidPropertyValue);
        }
    }
    EXPECT_EQ(index, 1);
    EXPECT_THAT(lines_, IsEmpty());
}

TEST_F(UnattendedRun, ErrorReport_IsAnsweredOk) {
    std::int32_t number = 2;
    services::ShowError(number, u" x");
    EXPECT_THAT(lines_,
                ElementsAre(testing::HasSubstr("answered with OK: title=[ -  ()] prompt=[Can't save project x]")));
}

TEST_F(UnattendedRun, TextWithLineBreaks_IsReportedOnOneLine) {
    ShowMessage(String(u"a\r\nb\tc\0d", 8), 0, u"T\n");
    EXPECT_THAT(lines_, ElementsAre(testing::EndsWith("title=[T ] prompt=[a  b c d]")));
}

TEST_F(UnattendedRun, SystemFolderIsMissing_DefaultFolderIsUsed) {
    memory_.process.SetCommandLine(u"/sys:C:\\nowhere");
    clsQmxBackProcess object([](String&, String&) {});
    EXPECT_EQ(object.SystemFolder(), u"C:\\Pelorix\\sys\\");
    EXPECT_THAT(lines_, ElementsAre(testing::HasSubstr("answered with OK: title=[Path not found] prompt=[")));
    object.Terminate();
}

}  // namespace
}  // namespace host
