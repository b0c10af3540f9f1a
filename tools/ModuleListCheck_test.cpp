#include "tools/ModuleListCheck.h"

#include <gmock/gmock.h>

namespace tools {
namespace {

using ::testing::HasSubstr;

TEST(ModuleListCheck, ModuleList_CountAndOwnPlaceAreFound) {
    const ModuleListCheck check = CheckModuleList(u"EDITOR,K4TBACKPROCESS,LIBRARY");
    EXPECT_EQ(check.count, 3U);
    EXPECT_EQ(check.ownPlace, 2U);
    EXPECT_EQ(check.problem, "");
}

TEST(ModuleListCheck, OwnNameInOtherCase_IsNotFoundAndEmptyListHasNoField) {
    EXPECT_EQ(CheckModuleList(u"EDITOR,k4tbackprocess").ownPlace, 0U);
    EXPECT_EQ(CheckModuleList(u"").count, 0U);
}

TEST(ModuleListCheck, UnclosedQuote_IsAProblem) {
    const ModuleListCheck check = CheckModuleList(u"EDITOR,\"LIBRARY,K4TBACKPROCESS");
    EXPECT_THAT(check.problem, HasSubstr("field 2, 'LIBRARY,K4TBACKPROCESS' opens a quote that is never closed: "
                                         "the load of the main form never ends"));
    EXPECT_EQ(check.listWithout, u"EDITOR");
    EXPECT_EQ(CheckModuleList(u"\"EDITOR").listWithout, u"");
}

TEST(ModuleListCheck, NumberThatIsTooLarge_IsAProblem) {
    const ModuleListCheck check = CheckModuleList(u"EDITOR,1E999,LIBRARY");
    EXPECT_THAT(check.problem, HasSubstr("field 2, '1E999' is a number that is too large: 'Load' returns True"));
    EXPECT_EQ(check.listWithout, u"EDITOR,LIBRARY");
    EXPECT_EQ(CheckModuleList(u"EDITOR,1E999").listWithout, u"EDITOR");
    EXPECT_EQ(CheckModuleList(u"1E999,EDITOR").listWithout, u"EDITOR");
}

TEST(ModuleListCheck, QuotedNumberThatIsTooLarge_IsRemovedWithItsQuotes) {
    EXPECT_EQ(CheckModuleList(u"EDITOR,\"1E999\",LIBRARY").listWithout, u"EDITOR,LIBRARY");
    EXPECT_EQ(CheckModuleList(u"EDITOR,\"1E999\"").listWithout, u"EDITOR");
    EXPECT_EQ(CheckModuleList(u"\"1E999\",EDITOR").listWithout, u"EDITOR");
    EXPECT_EQ(CheckModuleList(u"EDITOR,\"1E999\",").listWithout, u"EDITOR");
    EXPECT_EQ(CheckModuleList(u"\"1E999\"").listWithout, u"");
}

}  // namespace
}  // namespace tools
