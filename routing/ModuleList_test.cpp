#include "routing/ModuleList.h"
#include "kernel_api/Suite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "routing/FieldSplitter.h"
#include "runtime/Form.h"
#include "services/ProcessValues.h"
#include "tests/support/BrokenReader.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ReaderInUse.h"

namespace routing {
namespace {

using runtime::String;
using ::testing::ElementsAre;

class ReadingTheModuleList : public tests::HeadlessComponentTest {
 protected:
    void Read(runtime::StringView list) {
        kernel_.Put(u"AllAps", list);
        ReadModuleList();
    }
};

TEST_F(ReadingTheModuleList, StartValuesAreEmptyOrZero) {
    EXPECT_EQ(InterModuleMessage(), 0u);
    EXPECT_TRUE(ModuleNames().empty());
    EXPECT_EQ(ModuleCount(), 0);
    EXPECT_EQ(OwnModuleIndex(), 0);
}

TEST_F(ReadingTheModuleList, ListContainsOwnName_IndexIsFound) {
    Read(u"EDITOR,K4TBACKPROCESS,LIBRARY");
    EXPECT_EQ(ModuleCount(), 3);
    EXPECT_THAT(ModuleNames(), ElementsAre(u"", u"EDITOR", u"K4TBACKPROCESS", u"LIBRARY"));
    EXPECT_EQ(OwnModuleIndex(), 2);
}

TEST_F(ReadingTheModuleList, RegistersTheSharedMessage) {
    Read(u"");
    EXPECT_EQ(memory_.windows.messages, (std::vector<String>{u"PELORIX"}));
    EXPECT_EQ(InterModuleMessage(), 0xC000u);
}

TEST_F(ReadingTheModuleList, OwnNameIsComparedExactly) {
    Read(u"EDITOR,k4tbackprocess, K4TBACKPROCESS");
    EXPECT_EQ(ModuleCount(), 3);
    EXPECT_EQ(OwnModuleIndex(), 0);
}

TEST_F(ReadingTheModuleList, OwnNameTwice_LastIndexIsUsed) {
    Read(u"K4TBACKPROCESS,A,K4TBACKPROCESS,B");
    EXPECT_EQ(OwnModuleIndex(), 3);
}

TEST_F(ReadingTheModuleList, QuotedNames_MayContainCommas) {
    Read(u"\"A,B\",K4TBACKPROCESS");
    EXPECT_THAT(ModuleNames(), ElementsAre(u"", u"A,B", u"K4TBACKPROCESS"));
    EXPECT_EQ(OwnModuleIndex(), 2);
}

TEST_F(ReadingTheModuleList, MissingList_NoModules) {
    ReadModuleList();
    EXPECT_EQ(ModuleCount(), 0);
    EXPECT_EQ(OwnModuleIndex(), 0);
    EXPECT_THAT(ModuleNames(), ElementsAre(u""));
}

/// A kernel that returns an address that means "no text".
class KernelWithoutText : public tests::InMemoryKernel {
 public:
    explicit KernelWithoutText(kernel_api::TextPointer none) : none_(none) {}
    kernel_api::TextPointer E_GetString(runtime::StringView /*key*/) override { return none_; }

 private:
    kernel_api::TextPointer none_;
};

TEST_F(ReadingTheModuleList, AddressZeroOrNegative_IsNotRead) {
    tests::BrokenReader broken;
    const tests::ReaderInUse inUse(broken);
    for (const kernel_api::TextPointer none : {0, -5}) {
        KernelWithoutText kernel(none);
        kernel_api::CurrentSuite().kernel = &kernel;
        EXPECT_EQ(tests::ErrorOf([] { ReadModuleList(); }), 0) << none;
        EXPECT_EQ(ModuleCount(), 0) << none;
        kernel_api::CurrentSuite().kernel = &kernel_;
    }
}

TEST_F(ReadingTheModuleList, EmptyList_ReplacesTheEarlierList) {
    Read(u"A,K4TBACKPROCESS");
    Read(u"");
    EXPECT_EQ(ModuleCount(), 0);
    EXPECT_EQ(OwnModuleIndex(), 0);
    EXPECT_THAT(ModuleNames(), ElementsAre(u""));
}

TEST_F(ReadingTheModuleList, ListCannotBeRead_MessageIsRegistered) {
    kernel_.FailOn("E_GetString(AllAps)", runtime::Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(tests::ErrorOf([] { ReadModuleList(); }), runtime::kDllEntryPointNotFound);
    EXPECT_EQ(InterModuleMessage(), 0xC000u);
}

TEST_F(ReadingTheModuleList, NumberOverflows_ListIsEmpty) {
    Read(u"K4TBACKPROCESS,B");
    EXPECT_EQ(tests::ErrorOf([&] { Read(u"A,K4TBACKPROCESS,1E999"); }), runtime::kOverflow);
    EXPECT_EQ(ModuleCount(), 0);
    EXPECT_EQ(OwnModuleIndex(), 0);
    EXPECT_THAT(ModuleNames(), ElementsAre(u""));
}

class PublishingTheState : public tests::HeadlessComponentTest {
 protected:
    PublishingTheState() { form_.SetCaption(u"My, \"caption\""); }

    std::unique_ptr<runtime::Form>& mainForm_ = services::Values().forms.main =
        std::make_unique<runtime::Form>(runtime::FormDesign{.name = u"form", .caption = u"", .inner = {3000, 1500}});
    runtime::Form& form_ = *mainForm_;
};

TEST_F(PublishingTheState, Record_IsTheCaptionAndFourNumbersWithBlanks) {
    PublishModuleState(-1, 0);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"My, \"caption\", 0, 0, 0, 0");
}

TEST_F(PublishingTheState, Record_ContainsWindowStateAndExtraNumber) {
    form_.SetState(runtime::WindowState::kMinimised);
    PublishModuleState(1, -42);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"My, \"caption\", 1, 0,-42, 0");
    form_.SetState(runtime::WindowState::kMaximised);
    PublishModuleState(7, 2147483647);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"My, \"caption\", 2, 0, 2147483647, 0");
}

TEST_F(PublishingTheState, Inactive_StoresTheEmptyString) {
    PublishModuleState(-1, 0);
    PublishModuleState(0, 5);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
}

TEST_F(PublishingTheState, NoMainForm_IsError91) {
    mainForm_.reset();
    EXPECT_EQ(tests::ErrorOf([] { PublishModuleState(-1, 0); }), runtime::kObjectVariableNotSet);
    PublishModuleState(0, 0);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
}

class FormShown : public tests::ComponentTest {
 protected:
    runtime::Form form_{{.name = u"form", .caption = u"", .inner = {3000, 1500}}};
    runtime::Form other_{{.name = u"other", .caption = u"", .inner = {3000, 1500}}};
};

TEST_F(FormShown, FormNotLoaded_FalseAndStaysUnloaded) {
    EXPECT_FALSE(IsFormShown(form_));
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FormShown, OtherFormVisible_FormStaysUnloaded) {
    other_.SetVisible(true);
    EXPECT_FALSE(IsFormShown(form_));
    EXPECT_FALSE(form_.IsLoaded());
    other_.Unload();
}

TEST_F(FormShown, LoadedForm_TrueOnlyWhileVisible) {
    other_.SetVisible(true);
    form_.EnsureLoaded();
    EXPECT_FALSE(IsFormShown(form_));
    form_.SetVisible(true);
    EXPECT_TRUE(IsFormShown(form_));
    form_.Hide();
    EXPECT_FALSE(IsFormShown(form_));
    form_.Unload();
    other_.Unload();
}

using FormShownInMemory = tests::HeadlessTest;

TEST_F(FormShownInMemory, OtherProgramShowsOrHidesTheForm_ResultFollows) {
    runtime::Form form({.name = u"form", .caption = u"", .inner = {3000, 1500}});
    form.EnsureLoaded();
    memory_.windows.Last().ShowExternally();
    EXPECT_TRUE(IsFormShown(form));
    memory_.windows.Last().HideExternally();
    EXPECT_FALSE(IsFormShown(form));
    form.Unload();
}

}  // namespace
}  // namespace routing
