// Tests every SettingsPort. Runs with the settings in memory on every platform, and with the registry on Windows.
#include "runtime/SettingsPort_test.h"

#include "tests/support/ErrorOf.h"

namespace runtime {
namespace {

TEST_P(SettingsPortTest, SavedValueIsFound) {
    Save(u"frmBackProcessMain_TOP", u"1200");
    EXPECT_EQ(Get(u"frmBackProcessMain_TOP"), u"1200");
}

TEST_P(SettingsPortTest, AbsentSetting_HasNoValue) {
    EXPECT_EQ(Get(u"Key"), std::nullopt);
    Save(u"Key", u"x");
    EXPECT_EQ(Get(u"Other"), std::nullopt);
    EXPECT_EQ(settings_->Get(kTestApplication, u"Other", u"Key"), std::nullopt);
}

TEST_P(SettingsPortTest, LaterValue_ReplacesTheEarlierValue) {
    Save(u"Key", u"a longer value");
    Save(u"Key", u"x");
    EXPECT_EQ(Get(u"Key"), u"x");
}

TEST_P(SettingsPortTest, LetterCaseOfNamesDoesNotMatter) {
    Save(u"Key\u00E9", u"x");
    EXPECT_EQ(Get(u"kEY\u00C9"), u"x");
    EXPECT_EQ(settings_->Get(u"k4t SETTINGS tests", u"sECTION", u"KEY\u00C9"), u"x");
}

TEST_P(SettingsPortTest, EmptyValue_IsNotAbsent) {
    Save(u"Key", u"");
    EXPECT_EQ(Get(u"Key"), u"");
}

TEST_P(SettingsPortTest, AnyCharacters_RoundTrip) {
    const String odd = u"a\"b;\\=\r\n\t\u20AC\u4E2D\xD83D\xDE00\xD800" + String(1, u'\0') + u"z";
    Save(u"Key", odd);
    EXPECT_EQ(Get(u"Key"), odd);
    const String onlyNul(1, u'\0');
    Save(u"Key", onlyNul);
    EXPECT_EQ(Get(u"Key"), onlyNul);
}

TEST_P(SettingsPortTest, LongValue_RoundTrips) {
    const String value = String(100'000, u'x') + u"end";
    Save(u"Key", value);
    EXPECT_TRUE(Get(u"Key") == value);
}

TEST_P(SettingsPortTest, InvalidNames_AreRefusedAndNotFound) {
    const String withNul(u"a\0b", 3);
    const auto saveError = [this](StringView application, StringView section, StringView key) {
        return tests::ErrorOf([&] { settings_->Save(application, section, key, u"x"); });
    };
    EXPECT_EQ(saveError(u"", u"Section", u"Key"), kInvalidProcedureCall);
    EXPECT_EQ(saveError(kTestApplication, u"", u"Key"), kInvalidProcedureCall);
    EXPECT_EQ(saveError(kTestApplication, u"Section", u""), kInvalidProcedureCall);
    EXPECT_EQ(saveError(kTestApplication, u"Section", withNul), kInvalidProcedureCall);
    EXPECT_EQ(settings_->Get(u"", u"Section", u"Key"), std::nullopt);
    EXPECT_EQ(Get(u""), std::nullopt);
    EXPECT_EQ(Get(withNul), std::nullopt);
}

}  // namespace
}  // namespace runtime
