#include "services/MessageTexts.h"
#include "kernel_api/Suite.h"

#include <gmock/gmock.h>

#include "runtime/Form.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ReaderInUse.h"
#include "tests/support/RecordingReader.h"

namespace services {
namespace {

using runtime::kObjectVariableNotSet;
using testing::ElementsAre;
using Message = runtime::headless::ScriptedMessageBox::Message;

constexpr StringView kTitle = u"Orvane - Orvane (Pelorix Background process )";

class MessageTexts : public tests::HeadlessComponentTest {
 protected:
    MessageTexts() {
        kernel_.Put(u"PRODUCT_NAME", u"Orvane");
        Values().moduleName = u"Orvane";
        Values().moduleCaption = u"Pelorix Background process ";
    }

    void WriteTexts(std::string_view lines) {
        kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
        memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", lines);
    }
    const std::vector<Message>& Shown() const { return memory_.messageBox.shown; }
};

TEST_F(MessageTexts, LocalText_IsTheTranslationOrTheDefault) {
    EXPECT_EQ(GetLocalText(u"Path: ", u"991019 "), u"Path: ");
    WriteTexts("991019 = Pfad:\\s\n");
    EXPECT_EQ(GetLocalText(u"Path: ", u"991019 "), u"Pfad: ");
    EXPECT_EQ(GetLocalText(u" not available", u"99961 "), u" not available");
}

TEST_F(MessageTexts, NoReader_LocalTextRaisesAnError) {
    kernel_api::CurrentSuite().reader = nullptr;
    EXPECT_EQ(tests::ErrorOf([] { GetLocalText(u"", u"1"); }), kObjectVariableNotSet);
}

class ErrorReports : public MessageTexts {
 protected:
    Message Report(std::int32_t number, StringView detail) {
        memory_.messageBox.answers = {1};
        memory_.messageBox.shown.clear();
        ShowError(number, detail);
        EXPECT_EQ(Shown().size(), 1u);
        return Shown().empty() ? Message{} : Shown()[0];
    }
    String Prompt(std::int32_t number) { return Report(number, u"x").prompt; }
};

TEST_F(ErrorReports, EachErrorHasItsTextBeforeTheDetail) {
    EXPECT_EQ(Prompt(1), u"Can't load project: x");
    EXPECT_EQ(Prompt(2), u"Can't save projectx");
    EXPECT_EQ(Prompt(3), u"Can't create net hook x");
    EXPECT_EQ(Prompt(4), u"Can't find project file: x");
    EXPECT_EQ(Prompt(21), u"Range Error: x");
    EXPECT_EQ(Prompt(22), u"Can't load local vector font, default assumed.x");
    EXPECT_EQ(Prompt(23), u"Can't exceed 25 characters.x");
    EXPECT_EQ(Prompt(24), u"Password can't exceed 8 characters.x");
}

TEST_F(ErrorReports, DuplicatePart_HasTextsBeforeAndAfterTheDetail) {
    EXPECT_EQ(Report(101, u"R1").prompt, u"Part/Symbol: R1 already exists");
}

TEST_F(ErrorReports, EachErrorIsTranslatedByItsOwnIdentifier) {
    WriteTexts(
        "99352 = a\n99374 = b\n1097 = c\n1099 = d\n991089 = e\n10294 = f\n10320 = g\n10321 = h\n"
        "99561 = [\n99196 = ]\n");
    EXPECT_EQ(Prompt(1), u"ax");
    EXPECT_EQ(Prompt(2), u"bx");
    EXPECT_EQ(Prompt(3), u"cx");
    EXPECT_EQ(Prompt(4), u"dx");
    EXPECT_EQ(Prompt(21), u"ex");
    EXPECT_EQ(Prompt(22), u"fx");
    EXPECT_EQ(Prompt(23), u"gx");
    EXPECT_EQ(Prompt(24), u"hx");
    EXPECT_EQ(Prompt(101), u"[x]");
}

TEST_F(ErrorReports, EachTextOfTheDuplicatePartHasItsOwnDefault) {
    WriteTexts("99196 = \\sgibt es schon\n");
    EXPECT_EQ(Report(101, u"R1").prompt, u"Part/Symbol: R1 gibt es schon");
}

TEST_F(ErrorReports, Message_IsSystemModalWithAnExclamationIcon) {
    for (const std::int32_t number : {1, 2, 3, 4, 21, 22, 23, 24, 101}) {
        EXPECT_EQ(Report(number, u"x").flags, 48 + 4096) << number;
    }
}

TEST_F(ErrorReports, UnlistedNumber_EmptyMessageWithoutAnIcon) {
    for (const std::int32_t number : {0, 5, 20, 25, 100, 102, 9999, -1, -101, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(Report(number, u"x"), (Message{u"", 4096, String(kTitle)})) << number;
    }
}

TEST_F(ErrorReports, ModuleNameIsEmpty_TitleKeepsTheDash) {
    Values().moduleName.clear();
    EXPECT_EQ(Report(2, u"x").title, u"Orvane -  (Pelorix Background process )");
}

TEST_F(ErrorReports, ProductNameChanges_TitleKeepsTheModuleName) {
    kernel_.Put(u"PRODUCT_NAME", u"Other");
    EXPECT_EQ(Report(2, u"x").title, u"Other - Orvane (Pelorix Background process )");
}

TEST_F(ErrorReports, ErrorNumber_IsUnchanged) {
    memory_.messageBox.answers = {1};
    std::int32_t number = 2;
    ShowError(number, u"x");
    EXPECT_EQ(number, 2);
}

TEST_F(ErrorReports, AnyCharacter_IsShownUnchanged) {
    const String detail = u"&\"%<\t\r\n\U0001F600\u05D0\xD800";
    EXPECT_EQ(Report(2, detail).prompt, u"Can't save project" + detail);
}

TEST_F(ErrorReports, LookupChangesTheDetail_OldDetailIsShown) {
    String detail = u"R1";
    reader_.UseLanguageFolder([&detail] {
        detail = u"R2";
        return String();
    });
    EXPECT_EQ(Report(101, detail).prompt, u"Part/Symbol: R1 already exists");
}

TEST_F(ErrorReports, ReaderFails_NothingIsShown) {
    tests::RecordingReader broken(reader_);
    broken.onEachText = [] { throw runtime::Error(runtime::kPropertyNotSupported); };
    const tests::ReaderInUse inUse(broken);
    std::int32_t number = 2;
    EXPECT_EQ(tests::ErrorOf([&] { ShowError(number, u"x"); }), runtime::kPropertyNotSupported);
    EXPECT_TRUE(Shown().empty());
}

class Messages : public MessageTexts {};

TEST_F(Messages, SystemBox_ReceivesAllArguments) {
    memory_.messageBox.answers = {6};
    EXPECT_EQ(ShowMessage(u"Save?", 36, u"Title", {u"C:\\help.chm", 7}), 6);
    EXPECT_THAT(Shown(), ElementsAre(Message{u"Save?", 36, u"Title", {u"C:\\help.chm", 7}}));
}

TEST_F(Messages, NoTitle_TitleIsTheProductsName) {
    memory_.messageBox.answers = {1};
    ShowMessage(u"Done", 0);
    EXPECT_THAT(Shown(), ElementsAre(Message{u"Done", 0, u"Orvane"}));
}

TEST_F(Messages, EmptyTitle_IsShownEmpty) {
    memory_.messageBox.answers = {1};
    ShowMessage(u"Done", 0, u"");
    EXPECT_EQ(Shown().at(0).title, u"");
}

/// Installs a suite's message box that returns 8 and records its arguments.
class SuiteMessages : public MessageTexts {
 protected:
    SuiteMessages() {
        Values().suiteMessageBox = [this](StringView prompt, std::int32_t flags, StringView title) {
            asked_.push_back({String(prompt), flags, String(title)});
            return 8;
        };
    }
    std::vector<Message> asked_;
};

TEST_F(SuiteMessages, SuiteBitSet_SuiteBoxIsShown) {
    EXPECT_EQ(ShowMessage(u"Overwrite?", 8, u"T"), 8);
    EXPECT_EQ(ShowMessage(u"Overwrite?", 8 + 0x100 + 48 + 4, u"T"), 8);
    EXPECT_THAT(asked_, ElementsAre(Message{u"Overwrite?", 8, u"T"}, Message{u"Overwrite?", 8 + 0x100 + 48 + 4, u"T"}));
    EXPECT_TRUE(Shown().empty());
}

TEST_F(SuiteMessages, SuiteBitClear_SystemBoxIsShown) {
    for (const std::int32_t flags : {0, 7, 48 + 4096, 0x300, ~8}) {
        memory_.messageBox.answers = {1};
        EXPECT_EQ(ShowMessage(u"", flags, u"T"), 1) << flags;
    }
    EXPECT_TRUE(asked_.empty());
}

TEST_F(SuiteMessages, NoTitle_TitleIsTheProductsName) {
    ShowMessage(u"Overwrite?", 8);
    EXPECT_EQ(asked_.at(0).title, u"Orvane");
}

TEST_F(SuiteMessages, NoSuiteBox_IsError91) {
    Values().suiteMessageBox = nullptr;
    EXPECT_EQ(tests::ErrorOf([] { ShowMessage(u"Overwrite?", 8, u"T"); }), kObjectVariableNotSet);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(SuiteMessages, BoxRemovedWhileOpen_CallCompletes) {
    Values().suiteMessageBox = [kept = String(100, u'x')](StringView, std::int32_t, StringView) {
        Values().suiteMessageBox = nullptr;
        return static_cast<std::int32_t>(kept.size());
    };
    EXPECT_EQ(ShowMessage(u"Overwrite?", 8, u"T"), 100);
}

}  // namespace
}  // namespace services
