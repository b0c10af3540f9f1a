// Runs the tests of FontsPort with GdiFonts. Uses the faces that are installed on the test machine.
#include "runtime/win32/GdiFonts.h"

#include "runtime/FontsPort_test.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/WindowsHeaders.h"
#include "tests/windows/ReplacedImport.h"

namespace runtime::win32 {
namespace {

struct TestedGdiFonts : TestedFonts {
    FontsPort& Port() override { return fonts; }
    NativeHandle Context() override { return reinterpret_cast<NativeHandle>(GetDC(nullptr)); }
    /// Returns the actual face of the stock font.
    String KnownFace() override {
        const NativeHandle context = Context();
        fonts.Select(context, fonts.StockGuiFont());
        const String face = fonts.FaceName(context);
        fonts.ReleaseContext(0, context);
        return face;
    }
    GdiFonts fonts;
};

std::unique_ptr<TestedFonts> MakeGdiFonts() {
    return std::make_unique<TestedGdiFonts>();
}
INSTANTIATE_TEST_SUITE_P(Windows, FontsPortTest, testing::Values(&MakeGdiFonts));

TEST(GdiFonts, FindsAFaceInAnyLetterCase) {
    const String face = TestedGdiFonts().KnownFace();
    EXPECT_TRUE(GdiFonts().IsInstalled(Win32Locale().LowerCase(face)));
    EXPECT_TRUE(GdiFonts().IsInstalled(Win32Locale().UpperCase(face)));
}

struct AskedParameters {
    UINT action;
    UINT size;
    UINT changes;
};
AskedParameters askedParameters{};

BOOL WINAPI NoteParameters(UINT action, UINT size, void* /*into*/, UINT changes) noexcept {
    askedParameters = {action, size, changes};
    return FALSE;
}

TEST(GdiFonts, IconTitleFont_IsRequestedByAction31With61Bytes) {
    const tests::ReplacedImport replaced("SystemParametersInfoA", NoteParameters);
    EXPECT_EQ(GdiFonts().MakeIconTitleFont(), 0);
    EXPECT_EQ(askedParameters.action, 31u);
    EXPECT_EQ(askedParameters.size, 61u);
    EXPECT_EQ(askedParameters.changes, 0u);
}

}  // namespace
}  // namespace runtime::win32
