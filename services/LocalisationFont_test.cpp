// Tests the choice of the user-interface font. Covers all branches of the choice.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "services/Localisation.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"

namespace services {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Language, PrimaryIsTheLowTenBits) {
    EXPECT_EQ(PrimaryLanguage(0x0404), 0x04);
    EXPECT_EQ(PrimaryLanguage(0x0804), 0x04);
    EXPECT_EQ(PrimaryLanguage(0x0411), 0x11);
    EXPECT_EQ(PrimaryLanguage(0x0812), 0x12);
    EXPECT_EQ(PrimaryLanguage(0x07FF), 0x3FF);
    EXPECT_EQ(PrimaryLanguage(0x30404), 0x04);
}

TEST(Language, SubLanguageIsTheRoundedQuotient) {
    EXPECT_EQ(SubLanguage(0x0404), 1);  // 1028 / 1024 = 1.004
    EXPECT_EQ(SubLanguage(0x0804), 2);  // 2052 / 1024 = 2.004
    EXPECT_EQ(SubLanguage(0x0C04), 3);  // 3076 / 1024 = 3.004
    EXPECT_EQ(SubLanguage(0x0411), 1);  // 1041 / 1024 = 1.017
    EXPECT_EQ(SubLanguage(0x0412), 1);  // 1042 / 1024 = 1.018
    EXPECT_EQ(SubLanguage(0x0812), 2);  // 2066 / 1024 = 2.018
    EXPECT_EQ(SubLanguage(0x0C12), 3);  // 3090 / 1024 = 3.018
    EXPECT_EQ(SubLanguage(0x0004), 0);  // 4 / 1024 = 0.004
}

TEST(Language, SubLanguageRoundsHalvesToEven) {
    EXPECT_EQ(SubLanguage(0x05FF), 1);  // 1535 / 1024 = 1.499
    EXPECT_EQ(SubLanguage(0x0600), 2);  // 1536 / 1024 = 1.5
    EXPECT_EQ(SubLanguage(0x0601), 2);  // 1537 / 1024 = 1.501
    EXPECT_EQ(SubLanguage(0x0A00), 2);  // 2560 / 1024 = 2.5
    EXPECT_EQ(SubLanguage(0x0A01), 3);  // 2561 / 1024 = 2.501
    EXPECT_EQ(SubLanguage(0x0200), 0);  // 512 / 1024 = 0.5
}

TEST(Language, SubLanguageIncludesTheSortOrder) {
    EXPECT_EQ(SubLanguage(0x30404), 193);  // 197636 / 1024 = 193.004
    EXPECT_EQ(SubLanguage(0x10412), 65);   // 66578 / 1024 = 65.018
}

constexpr runtime::NativeHandle kWindow = 4096;
constexpr runtime::NativeHandle kContext = 4097;

class UiFontChoice : public tests::HeadlessComponentTest {
 protected:
    FontRule ChooseFor(std::int32_t systemLcid) {
        memory_.locale.systemLcid = systemLcid;
        return ChooseUiFont(kWindow, kContext);
    }
    const std::vector<std::string>& Log() const { return memory_.fonts.log; }
};

struct FixedChoice {
    std::int32_t lcid;
    FontRule rule;
    UiFont font;
};

constexpr StringView kJapaneseFace = u"\uFF2D\uFF33 \uFF30\u30B4\u30B7\u30C3\u30AF";

const FixedChoice kFixedChoices[] = {
    {0x0404, FontRule::kTraditionalChinese, {u"\u65B0\u7D30\u660E\u9AD4", 9, 136}},
    {0x0804, FontRule::kSimplifiedChinese, {u"\u5B8B\u4F53", 9, 134}},
    {0x0C04, FontRule::kOtherChinese, {u"", 0, 0}},
    {0x1004, FontRule::kOtherChinese, {u"", 0, 0}},
    {0x0004, FontRule::kOtherChinese, {u"", 0, 0}},
    {0x30404, FontRule::kOtherChinese, {u"", 0, 0}},
    {0x0411, FontRule::kJapanese, {String(kJapaneseFace), 9, 128}},
    {0x0811, FontRule::kJapanese, {String(kJapaneseFace), 9, 128}},
    {0x10411, FontRule::kJapanese, {String(kJapaneseFace), 9, 128}},
    {0x0412, FontRule::kKorean, {u"\uAD74\uB9BC", 9, 129}},
    {0x0812, FontRule::kKorean, {u"\uAD74\uB9BC", 9, 129}},
    {0x0C12, FontRule::kOtherKorean, {u"", 9, 129}},
    {0x0012, FontRule::kOtherKorean, {u"", 9, 129}},
};

class FixedUiFont : public UiFontChoice, public testing::WithParamInterface<FixedChoice> {};

TEST_P(FixedUiFont, DependsOnlyOnTheSystemLocale) {
    memory_.fonts.installed.clear();
    memory_.locale.charsets.clear();
    Values().uiFont = {u"Arial", 8, 77};
    EXPECT_EQ(ChooseFor(GetParam().lcid), GetParam().rule);
    EXPECT_EQ(Values().uiFont, GetParam().font);
    EXPECT_THAT(Log(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Languages, FixedUiFont, testing::ValuesIn(kFixedChoices), [](const auto& choice) {
    char name[16];
    std::snprintf(name, sizeof name, "x%05X", static_cast<unsigned>(choice.param.lcid));
    return std::string(name);
});

TEST_F(UiFontChoice, JapaneseFace_HasEightCharactersAndTheThirdIsABlank) {
    ChooseFor(0x0411);
    EXPECT_EQ(Values().uiFont.name.size(), 8u);
    EXPECT_EQ(Values().uiFont.name[2], u' ');
}

TEST_F(UiFontChoice, WesternFace_IsTheFirstInstalledFaceOfTheList) {
    EXPECT_EQ(ChooseFor(0x0407), FontRule::kInstalledFace);
    EXPECT_EQ(Values().uiFont, (UiFont{u"MS Sans Serif", 8, 0}));
    memory_.fonts.installed = {u"System", u"Arial"};
    ChooseFor(0x0407);
    EXPECT_EQ(Values().uiFont, (UiFont{u"Arial", 8, 0}));
    memory_.fonts.installed = {u"System"};
    memory_.fonts.log.clear();
    ChooseFor(0x0407);
    EXPECT_EQ(Values().uiFont, (UiFont{u"System", 8, 0}));
    EXPECT_THAT(Log(), ElementsAre("installed MS Sans Serif", "installed Arial", "installed System"));
}

TEST_F(UiFontChoice, WesternCharacterSet_FollowsTheUsersLocale) {
    memory_.locale.charsets = {{0x0407, 0}, {0x0419, 204}};
    memory_.locale.userLcid = 0x0419;
    ChooseFor(0x0407);
    EXPECT_EQ(Values().uiFont, (UiFont{u"MS Sans Serif", 8, 204}));
    EXPECT_EQ(UserCharset(), 204);
    memory_.locale.charsets.clear();
    ChooseFor(0x0407);
    EXPECT_EQ(Values().uiFont, (UiFont{u"MS Sans Serif", 8, 0}));
    EXPECT_EQ(UserCharset(), 0);
}

TEST_F(UiFontChoice, FixedCharacterSet_DoesNotFollowTheUsersLocale) {
    memory_.locale.charsets = {{0x0419, 204}};
    memory_.locale.userLcid = 0x0419;
    ChooseFor(0x0411);
    EXPECT_EQ(Values().uiFont.characterSet, 128);
}

TEST_F(UiFontChoice, UnknownSystemLocale_WesternFaceIsChosen) {
    EXPECT_EQ(ChooseFor(0), FontRule::kInstalledFace);
    EXPECT_EQ(Values().uiFont, (UiFont{u"MS Sans Serif", 8, 0}));
}

// Font handles in the logs: 80 is the context's former font, 81 is the stock font, and 82 is the created font.

TEST_F(UiFontChoice, NoFaceInstalled_IconTitleFontIsReadAndReleased) {
    memory_.fonts.installed.clear();
    memory_.fonts.iconTitleFace = u"Segoe UI";
    EXPECT_EQ(ChooseFor(0x0407), FontRule::kIconTitleFont);
    EXPECT_EQ(Values().uiFont, (UiFont{u"Segoe UI", 8, 0}));
    EXPECT_THAT(Log(), ElementsAre("installed MS Sans Serif", "installed Arial", "installed System", "make icon title",
                                   "select 82 in 4097", "face of 4097", "select 80 in 4097", "release 4097 of 4096",
                                   "delete 82"));
}

TEST_F(UiFontChoice, NoIconTitleFont_StockFontIsReadAndNotDeleted) {
    memory_.fonts.installed.clear();
    memory_.fonts.describesIconTitles = false;
    EXPECT_EQ(ChooseFor(0x0407), FontRule::kStockFont);
    EXPECT_EQ(Values().uiFont, (UiFont{u"MS Shell Dlg", 8, 0}));
    EXPECT_THAT(
        Log(), ElementsAre("installed MS Sans Serif", "installed Arial", "installed System", "make icon title", "stock",
                           "select 81 in 4097", "face of 4097", "select 80 in 4097", "release 4097 of 4096"));
}

TEST_F(UiFontChoice, FaceNameFails_FontIsUnchangedAndHandlesAreReleased) {
    memory_.fonts.installed.clear();
    memory_.fonts.failsFaceName = true;
    Values().uiFont = {u"Arial", 9, 161};
    EXPECT_EQ(tests::ErrorOf([this] { ChooseFor(0x0407); }), runtime::kOutOfMemory);
    EXPECT_EQ(Values().uiFont, (UiFont{u"Arial", 9, 161}));
    EXPECT_THAT(Log(), ElementsAre("installed MS Sans Serif", "installed Arial", "installed System", "make icon title",
                                   "select 82 in 4097", "face of 4097", "select 80 in 4097", "release 4097 of 4096",
                                   "delete 82"));
}

TEST_F(UiFontChoice, FaceNameIsUnknown_FontNameIsEightyBlanks) {
    memory_.fonts.installed.clear();
    memory_.locale.systemLcid = 0x0407;
    EXPECT_EQ(ChooseUiFont(kWindow, 0), FontRule::kIconTitleFont);
    EXPECT_EQ(Values().uiFont, (UiFont{String(80, u' '), 8, 0}));
}

}  // namespace
}  // namespace services
