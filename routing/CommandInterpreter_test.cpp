#include "routing/CommandInterpreter.h"
#include "kernel_api/Suite.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kernel_api/builtin/BuiltInSplitter.h"
#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"

namespace routing {
namespace {

using runtime::Error;
using runtime::String;
using runtime::StringView;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

/// Records the calls of its parsers. A test can make the calls of Field fail with `onField`.
class RecordingSplitter : public kernel_api::Splitter {
 public:
    std::unique_ptr<kernel_api::FieldParser> MakeFieldParser() override {
        ++made;
        return std::make_unique<Parser>(*this);
    }
    std::int32_t CountPieces(StringView text, StringView separator) override {
        return splitter_.CountPieces(text, separator);
    }

    int made = 0;
    std::vector<std::string> asked;
    std::function<void()> onField;

 private:
    class Parser : public kernel_api::FieldParser {
     public:
        explicit Parser(RecordingSplitter& splitter)
            : splitter_(splitter), parser_(splitter.splitter_.MakeFieldParser()) {}

        void SetText(StringView text) override {
            splitter_.asked.push_back("text " + runtime::ToUtf8(text));
            parser_->SetText(text);
        }
        StringView Field(std::int32_t number) override {
            splitter_.asked.push_back("field " + std::to_string(number));
            if (splitter_.onField) splitter_.onField();
            return parser_->Field(number);
        }

     private:
        RecordingSplitter& splitter_;
        std::unique_ptr<kernel_api::FieldParser> parser_;
    };

    kernel_api::builtin::BuiltInSplitter splitter_;
};

class InterpreterTest : public tests::HeadlessComponentTest {
 protected:
    InterpreterTest() {
        kernel_api::CurrentSuite().splitter = &splitter_;
        kernel_.Put(u"DESIGN_NAME", u"amplifier");
        kernel_.Put(u"PRODUCT_NAME", u"Orvane");
        dialog_.onUnload = [this] {
            ++unloads_;
            if (onUnload_) onUnload_();
        };
    }

    /// Executes `command` while `dialog_` is loaded. `unloads_` counts the unloads of `dialog_`.
    void Execute(StringView command) {
        dialog_.EnsureLoaded();
        if (const auto failure = interpreter_.Execute(command, form_, false)) interpreter_.ReportFailure(failure);
    }
    std::int32_t ErrorOfExecuting(StringView command) {
        return ErrorOf([&] { Execute(command); });
    }
    /// Lets `failing_` throw, so that the first UnloadAll fails. `dialog_` refuses to unload. It therefore stays
    /// loaded until the second UnloadAll.
    void MakeFirstUnloadFail() {
        failing_.onUnload = [] { throw Error(runtime::kOverflow); };
        dialog_.refusesUnload = true;
        dialog_.EnsureLoaded();
        failing_.EnsureLoaded();
    }
    std::vector<String> Messages() const {
        std::vector<String> prompts;
        for (const auto& message : memory_.messageBox.shown) prompts.push_back(message.prompt);
        return prompts;
    }
    /// Checks that a command had no effect.
    void ExpectNothingDone() const {
        EXPECT_EQ(CurrentDesignName(), u"");
        EXPECT_EQ(LanguagePath(), u"");
        EXPECT_EQ(unloads_, 0);
        EXPECT_FALSE(form_.IsLoaded());
        EXPECT_THAT(kernel_.Log(), IsEmpty());
        EXPECT_THAT(Messages(), IsEmpty());
    }

    RecordingSplitter splitter_;
    CommandInterpreter interpreter_;
    tests::HandledForm form_;
    tests::HandledForm dialog_;
    tests::HandledForm failing_;
    int unloads_ = 0;
    std::function<void()> onUnload_;
};

using Addressee = InterpreterTest;

TEST_F(Addressee, ThisModuleOrAll_CommandIsCarriedOut) {
    for (const StringView command : {u"K4TBACKPROCESS,SAVE", u"All,SAVE", u"\"All\",\"SAVE\""}) {
        CurrentDesignName().clear();
        Execute(command);
        EXPECT_EQ(CurrentDesignName(), u"amplifier") << runtime::ToUtf8(command);
    }
}

TEST_F(Addressee, OtherName_CommandIsIgnored) {
    for (const StringView command :
         {u"Editor,SAVE", u"all,SAVE", u"ALL,SAVE", u"k4tbackprocess,SAVE", u" All,SAVE", u"All ,SAVE", u",SAVE", u"Al",
          u"SAVE", u",", u"\"", u"\"All,SAVE", u"K4TBACKPROCESS;SAVE"}) {
        Execute(command);
        ExpectNothingDone();
    }
}

TEST_F(Addressee, Command_AddresseeIsReadTwiceAndVerbOnce) {
    Execute(u"All,UP,3,4");
    EXPECT_THAT(splitter_.asked, ElementsAre("text All,UP,3,4", "field 1", "field 1", "field 2"));
    splitter_.asked.clear();
    Execute(u"K4TBACKPROCESS,RD");
    EXPECT_THAT(splitter_.asked, ElementsAre("text K4TBACKPROCESS,RD", "field 1", "field 1", "field 2"));
}

TEST_F(Addressee, OtherModule_VerbIsNotRead) {
    Execute(u"Editor,SAVE");
    EXPECT_THAT(splitter_.asked, ElementsAre("text Editor,SAVE", "field 1", "field 1"));
}

TEST_F(Addressee, FirstCommand_MakesTheOnlyParser) {
    EXPECT_EQ(splitter_.made, 0);
    Execute(u"");
    EXPECT_EQ(splitter_.made, 0);
    Execute(u"All");
    Execute(u"All");
    EXPECT_EQ(splitter_.made, 1);
}

using Verbs = InterpreterTest;

TEST_F(Verbs, SaveAndOpen_StoreTheTrimmedNameOfTheDesign) {
    kernel_.Put(u"DESIGN_NAME", u"  big board ");
    Execute(u"All,SAVE");
    EXPECT_EQ(CurrentDesignName(), u"big board");
    EXPECT_FALSE(form_.IsLoaded());
    kernel_.Put(u"DESIGN_NAME", u"other");
    Execute(u"K4TBACKPROCESS,OPEN,C:\\x");
    EXPECT_EQ(CurrentDesignName(), u"other");
}

TEST_F(Verbs, SaveAndOpen_UseTheHandleFromTheKernel) {
    for (const std::int32_t handle : {7, -2}) {
        kernel_.UseDesignHandle(handle);
        for (const StringView command : {u"All,SAVE", u"All,OPEN"}) {
            kernel_.ClearLog();
            CurrentDesignName().clear();
            Execute(command);
            EXPECT_EQ(CurrentDesignName(), u"amplifier");
            EXPECT_THAT(kernel_.Log(), ElementsAre("DB_DataBase()", "O_GetName(" + std::to_string(handle) + ")"));
        }
    }
}

TEST_F(Verbs, DesignHasNoName_StoredNameIsEmpty) {
    CurrentDesignName() = u"before";
    tests::InMemoryKernel empty;
    kernel_api::CurrentSuite().kernel = &empty;
    Execute(u"All,SAVE");
    EXPECT_EQ(CurrentDesignName(), u"");
    EXPECT_EQ(unloads_, 0);
}

TEST_F(Verbs, VerbWithoutEffectOrUnknownVerb_DoesNothing) {
    for (const StringView command :
         {u"All", u"All,", u"All,RD", u"All,UP", u"All,FMVHDLED,WIRELIST", u"All,FMVHDLED,XILINX", u"All,FMVHDLED,CUPL",
          u"All,save", u"All,SAVE ", u"All, SAVE", u"All,SAVEAS", u"All,Ex", u"All,,SAVE", u"All,\"SAVE,x"}) {
        Execute(command);
        ExpectNothingDone();
    }
}

TEST_F(Verbs, UnclosedQuote_RestIsTheVerb) {
    Execute(u"All,\"SAVE");
    EXPECT_EQ(CurrentDesignName(), u"amplifier");
}

TEST_F(Verbs, ExUnloadsAllFormsOnce) {
    Execute(u"All,EX");
    EXPECT_EQ(unloads_, 1);
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(Verbs, LzCopiesTheLanguageFolderUnchanged) {
    kernel_.Put(u"LANGUAGEPATH", u" C:\\lang ");
    Execute(u"All,LZ");
    EXPECT_EQ(LanguagePath(), u" C:\\lang ");
}

TEST_F(Verbs, LzWithoutALanguageFolder_PathIsEmpty) {
    LanguagePath() = u"C:\\lang";
    Execute(u"All,LZ");
    EXPECT_EQ(LanguagePath(), u"");
    EXPECT_EQ(unloads_, 0);
}

using Failure = InterpreterTest;

TEST_F(Failure, Error_IsShownThenAllFormsAreUnloaded) {
    kernel_.FailOn("DB_DataBase", Error(runtime::kDllEntryPointNotFound, u"no database"));
    memory_.messageBox.answers = {1};
    onUnload_ = [this] { EXPECT_THAT(Messages(), ElementsAre(u"no database")); };
    Execute(u"All,SAVE");
    EXPECT_EQ(unloads_, 1);
    EXPECT_EQ(CurrentDesignName(), u"");
    const auto& message = memory_.messageBox.shown.at(0);
    EXPECT_EQ(message.flags, 0);
    EXPECT_EQ(message.title, u"Orvane");
    EXPECT_EQ(message.help, runtime::MessageHelp());
}

TEST_F(Failure, AnyKernelCallFails_FormsAreUnloaded) {
    const std::pair<StringView, const char*> calls[] = {
        {u"All,SAVE", "DB_DataBase"}, {u"All,SAVE", "O_GetName"}, {u"All,LZ", "E_GetString(LANGUAGEPATH)"}};
    for (const auto& [command, call] : calls) {
        for (const bool isSilent : {false, true}) {
            memory_.messageBox.shown.clear();
            memory_.messageBox.answers = {1};
            unloads_ = 0;
            kernel_.FailOn(call, Error(isSilent ? runtime::kSilent : runtime::kFileNotFound));
            Execute(command);
            EXPECT_EQ(Messages().size(), isSilent ? 0U : 1U) << call;
            EXPECT_EQ(unloads_, 1) << call;
            kernel_.StopFailing();
        }
    }
}

TEST_F(Failure, ParserFails_ErrorIsShownAndFormsAreUnloaded) {
    memory_.messageBox.answers = {1};
    splitter_.onField = [] { throw Error(runtime::kTypeMismatch); };
    Execute(u"Editor,SAVE");
    EXPECT_THAT(Messages(), ElementsAre(u"Type mismatch"));
    EXPECT_EQ(unloads_, 1);
}

TEST_F(Failure, NoSplitter_ErrorIsShownAndFormsAreUnloaded) {
    memory_.messageBox.answers = {1};
    kernel_api::CurrentSuite().splitter = nullptr;
    Execute(u"All,SAVE");
    EXPECT_THAT(Messages(), ElementsAre(u"Object variable or With block variable not set: the string splitter"));
    EXPECT_EQ(unloads_, 1);
}

TEST_F(Failure, OutOfMemory_IsShown) {
    memory_.messageBox.answers = {1};
    splitter_.onField = [] { throw std::bad_alloc(); };
    Execute(u"All,SAVE");
    EXPECT_THAT(Messages(), ElementsAre(u"Out of memory"));
    EXPECT_EQ(unloads_, 1);
}

TEST_F(Failure, UnknownException_IsInternalError) {
    memory_.messageBox.answers = {1, 1};
    splitter_.onField = [] { throw std::logic_error("odd"); };
    Execute(u"All,SAVE");
    splitter_.onField = [] { throw 42; };
    Execute(u"All,SAVE");
    EXPECT_THAT(Messages(), ElementsAre(u"Internal error", u"Internal error"));
    EXPECT_EQ(unloads_, 2);
}

TEST_F(Failure, UnloadByExFails_ErrorIsShownAndUnloadIsRepeated) {
    memory_.messageBox.answers = {1};
    MakeFirstUnloadFail();
    onUnload_ = [this] { dialog_.refusesUnload = false; };
    Execute(u"All,EX");
    EXPECT_THAT(Messages(), ElementsAre(u"Overflow"));
    EXPECT_EQ(unloads_, 2);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0U);
}

TEST_F(Failure, MessageFails_FormsAreUnloadedThenCallerGetsError) {
    kernel_.FailOn("DB_DataBase", Error(runtime::kFileNotFound));
    EXPECT_EQ(ErrorOfExecuting(u"All,SAVE"), runtime::kInternalError);  // the test's message box has no answer
    EXPECT_EQ(Messages().size(), 1U);
    EXPECT_EQ(unloads_, 1);
}

TEST_F(Failure, MessageTitleFails_FormsAreUnloadedThenCallerGetsError) {
    kernel_.FailOn("E_GetString", Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(ErrorOfExecuting(u"All,LZ"), runtime::kDllEntryPointNotFound);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(unloads_, 1);
}

TEST_F(Failure, SecondUnloadFails_CallerGetsError) {
    memory_.messageBox.answers = {1};
    MakeFirstUnloadFail();
    onUnload_ = [this] {
        if (unloads_ == 2) throw Error(runtime::kTypeMismatch);
    };
    EXPECT_EQ(ErrorOfExecuting(u"All,EX"), runtime::kTypeMismatch);
    EXPECT_EQ(unloads_, 2);
}

TEST_F(Failure, MessageAndUnloadFail_CallerGetsTheMessagesError) {
    MakeFirstUnloadFail();
    onUnload_ = [this] {
        if (unloads_ == 2) throw Error(runtime::kTypeMismatch);
    };
    EXPECT_EQ(ErrorOfExecuting(u"All,EX"), runtime::kInternalError);
    EXPECT_EQ(unloads_, 2);
}

TEST_F(Failure, CommandAfterAFailure_IsCarriedOut) {
    memory_.messageBox.answers = {1};
    kernel_.FailOn("DB_DataBase", Error(runtime::kFileNotFound));
    Execute(u"All,SAVE");
    kernel_.StopFailing();
    Execute(u"All,SAVE");
    EXPECT_EQ(CurrentDesignName(), u"amplifier");
}

using Reentered = InterpreterTest;

TEST_F(Reentered, CommandInsideACommand_BothVerbsAreCarriedOut) {
    onUnload_ = [this] {
        if (unloads_ == 1) Execute(u"K4TBACKPROCESS,SAVE");
    };
    Execute(u"All,EX");
    EXPECT_EQ(CurrentDesignName(), u"amplifier");
    EXPECT_EQ(unloads_, 1);
}

TEST_F(Reentered, CommandDuringTheUnloadAfterAFailure_IsCarriedOut) {
    memory_.messageBox.answers = {1};
    kernel_.FailOn("DB_DataBase", Error(runtime::kFileNotFound));
    onUnload_ = [this] {
        kernel_.StopFailing();
        Execute(u"All,SAVE");
    };
    Execute(u"All,SAVE");
    EXPECT_EQ(CurrentDesignName(), u"amplifier");
    EXPECT_EQ(unloads_, 1);
}

}  // namespace
}  // namespace routing
