// Runs the tests of FontsPort with ScriptedFonts. Also tests the log of calls.
#include "runtime/headless/ScriptedFonts.h"

#include <gmock/gmock.h>

#include "runtime/FontsPort_test.h"

namespace runtime::headless {
namespace {

using ::testing::ElementsAre;

struct TestedScriptedFonts : TestedFonts {
    FontsPort& Port() override { return fonts; }
    NativeHandle Context() override { return 7; }
    String KnownFace() override { return u"Arial"; }
    ScriptedFonts fonts;
};

std::unique_ptr<TestedFonts> MakeScriptedFonts() {
    return std::make_unique<TestedScriptedFonts>();
}
INSTANTIATE_TEST_SUITE_P(Scripted, FontsPortTest, testing::Values(&MakeScriptedFonts));

TEST(ScriptedFonts, LogsEachCall) {
    ScriptedFonts fonts;
    fonts.IsInstalled(u"Arial");
    fonts.Select(7, fonts.StockGuiFont());
    fonts.FaceName(7);
    fonts.ReleaseContext(6, 7);
    fonts.Delete(fonts.MakeIconTitleFont());
    EXPECT_THAT(fonts.log, ElementsAre("installed Arial", "stock", "select 81 in 7", "face of 7", "release 7 of 6",
                                       "make icon title", "delete 82"));
}

TEST(ScriptedFonts, IconTitlesAreNotDescribed_NoFontIsCreated) {
    ScriptedFonts fonts;
    fonts.describesIconTitles = false;
    EXPECT_EQ(fonts.MakeIconTitleFont(), 0);
}

}  // namespace
}  // namespace runtime::headless
