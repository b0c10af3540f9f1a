#include "runtime/win32/GdiFonts.h"

#include "runtime/FontsPort_test.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {
namespace {

struct TriedGdiFonts : TriedFonts {
    FontsPort& Port() override { return fonts; }
    NativeHandle Context() override { return reinterpret_cast<NativeHandle>(GetDC(nullptr)); }
    String KnownFace() override { return u"Tahoma"; }
    GdiFonts fonts;
};

std::unique_ptr<TriedFonts> MakeGdiFonts() {
    return std::make_unique<TriedGdiFonts>();
}
INSTANTIATE_TEST_SUITE_P(Windows, FontsPortTest, testing::Values(&MakeGdiFonts));

TEST(GdiFonts, FindsAFaceInAnyLetterCase) {
    EXPECT_TRUE(GdiFonts().IsInstalled(u"tahoma"));
}

}  // namespace
}  // namespace runtime::win32
