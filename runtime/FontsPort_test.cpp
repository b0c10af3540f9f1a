// Tests every FontsPort. Runs with ScriptedFonts on every platform, and with GDI on Windows.
#include "runtime/FontsPort_test.h"

namespace runtime {
namespace {

TEST_P(FontsPortTest, IsInstalled_OnlyForExistingFaces) {
    EXPECT_TRUE(fonts_.IsInstalled(tested_->KnownFace()));
    EXPECT_FALSE(fonts_.IsInstalled(u"No Such Face"));
    EXPECT_FALSE(fonts_.IsInstalled(u""));
}

TEST_P(FontsPortTest, TooLongName_IsNotInstalled) {
    EXPECT_FALSE(fonts_.IsInstalled(tested_->KnownFace() + String(100, u' ') + u"x"));
}

TEST_P(FontsPortTest, Select_ReturnsTheFormerFont) {
    const NativeHandle stock = fonts_.StockGuiFont();
    ASSERT_NE(stock, 0);
    const NativeHandle before = fonts_.Select(context_, stock);
    EXPECT_NE(before, 0);
    EXPECT_EQ(fonts_.Select(context_, before), stock);
    EXPECT_EQ(fonts_.Select(context_, before), before);
}

TEST_P(FontsPortTest, SelectedFont_HasAFaceName) {
    const NativeHandle before = fonts_.Select(context_, fonts_.StockGuiFont());
    const String face = fonts_.FaceName(context_);
    EXPECT_NE(Trim(face), u"");
    EXPECT_EQ(face.find(u'\0'), String::npos);
    fonts_.Select(context_, before);
}

TEST_P(FontsPortTest, NoContext_HasNoFace) {
    EXPECT_EQ(fonts_.FaceName(0), String(80, u' '));
    EXPECT_EQ(fonts_.Select(0, fonts_.StockGuiFont()), 0);
}

TEST_P(FontsPortTest, IconTitleFont_IsDeletedByTheCaller) {
    const NativeHandle made = fonts_.MakeIconTitleFont();
    ASSERT_NE(made, 0);
    const NativeHandle before = fonts_.Select(context_, made);
    EXPECT_NE(Trim(fonts_.FaceName(context_)), u"");
    EXPECT_EQ(fonts_.Select(context_, before), made);
    fonts_.Delete(made);
    EXPECT_EQ(fonts_.Select(context_, made), 0);
    fonts_.ReleaseContext(0, context_);
}

}  // namespace
}  // namespace runtime
