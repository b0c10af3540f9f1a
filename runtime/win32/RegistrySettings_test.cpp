// Runs the tests of SettingsPort with the registry. Also tests values that other programs have written. All values are
// stored for a test application. The test application's key is deleted before and after each test.
#include "runtime/win32/RegistrySettings.h"

#include <gtest/gtest.h>

#include "runtime/Operation.h"
#include "runtime/SettingsPort_test.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {
namespace {

const String kApplicationPath = String(u"Software\\VB and VBA Program Settings\\").append(kTestApplication);

void ClearTestApplication() {
    RegDeleteTreeW(HKEY_CURRENT_USER, Wide(kApplicationPath));
}

std::shared_ptr<SettingsPort> MakeRegistrySettings() {
    ClearTestApplication();
    return {new RegistrySettings, [](SettingsPort* settings) {
                ClearTestApplication();
                delete settings;
            }};
}
INSTANTIATE_TEST_SUITE_P(Registry, SettingsPortTest, testing::Values(&MakeRegistrySettings));

class RegistrySettingsTest : public testing::Test {
 protected:
    /// Writes a value without the port, like another program.
    void Write(DWORD type, const void* data, DWORD bytes) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, Wide(kApplicationPath + u"\\Section"), 0, nullptr, 0,
                                  KEY_SET_VALUE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        const RegistryKey owner(key);
        ASSERT_EQ(RegSetValueExW(key, L"Key", 0, type, static_cast<const BYTE*>(data), bytes), ERROR_SUCCESS);
    }
    std::optional<String> Get() { return settings_->Get(kTestApplication, u"Section", u"Key"); }

    std::shared_ptr<SettingsPort> settings_ = MakeRegistrySettings();
};

TEST_F(RegistrySettingsTest, Save_UsesTheKeyOfTheClassicRuntime) {
    settings_->Save(kTestApplication, u"Section", u"Key", u"C:\\cad");
    wchar_t value[16] = {};
    DWORD bytes = sizeof(value);
    ASSERT_EQ(RegGetValueW(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\K4T settings tests\\Section",
                           L"Key", RRF_RT_REG_SZ, nullptr, value, &bytes),
              ERROR_SUCCESS);
    EXPECT_EQ(ToString(value), u"C:\\cad");
    EXPECT_EQ(bytes, 14u);
}

TEST_F(RegistrySettingsTest, ValueWithoutTerminator_IsRead) {
    Write(REG_SZ, L"abcd", 6);
    EXPECT_EQ(Get(), u"abc");
}

TEST_F(RegistrySettingsTest, ValueWithoutAnyBytes_IsEmpty) {
    Write(REG_SZ, L"", 0);
    EXPECT_EQ(Get(), u"");
}

TEST_F(RegistrySettingsTest, Variables_AreNotExpanded) {
    Write(REG_EXPAND_SZ, L"%TEMP%", 14);
    EXPECT_EQ(Get(), u"%TEMP%");
}

TEST_F(RegistrySettingsTest, ValueThatIsNotText_IsIgnored) {
    const DWORD number = 0x00410041;
    Write(REG_DWORD, &number, sizeof(number));
    EXPECT_EQ(Get(), std::nullopt);
    Write(REG_BINARY, &number, sizeof(number));
    EXPECT_EQ(Get(), std::nullopt);
}

TEST_F(RegistrySettingsTest, SectionIsCreatedInAnOperation_FoundOnlyAfterTheOperation) {
    {
        const Operation operation;
        EXPECT_EQ(Get(), std::nullopt);
        Write(REG_SZ, L"abc", 8);
        EXPECT_EQ(Get(), std::nullopt);
    }
    EXPECT_EQ(Get(), u"abc");
}

TEST_F(RegistrySettingsTest, SavedInAnOperation_SameOperationReadsTheValue) {
    const Operation operation;
    EXPECT_EQ(Get(), std::nullopt);
    settings_->Save(kTestApplication, u"Section", u"Key", u"abc");
    EXPECT_EQ(Get(), u"abc");
}

TEST_F(RegistrySettingsTest, TwoSectionsInAnOperation_EachSectionHasItsOwnValue) {
    const Operation operation;
    settings_->Save(kTestApplication, u"Other", u"Key", u"other");
    Write(REG_SZ, L"abc", 8);
    EXPECT_EQ(Get(), u"abc");
    EXPECT_EQ(settings_->Get(kTestApplication, u"Other", u"Key"), u"other");
    EXPECT_EQ(Get(), u"abc");
}

TEST_F(RegistrySettingsTest, SeveralSavesInAnOperation_EachSectionHasItsValues) {
    {
        const Operation operation;
        settings_->Save(kTestApplication, u"Section", u"Key", u"abc");
        settings_->Save(kTestApplication, u"Section", u"Second", u"def");
        settings_->Save(kTestApplication, u"Other", u"Key", u"other");
        settings_->Save(kTestApplication, u"Section", u"Key", u"last");
    }
    EXPECT_EQ(Get(), u"last");
    EXPECT_EQ(settings_->Get(kTestApplication, u"Section", u"Second"), u"def");
    EXPECT_EQ(settings_->Get(kTestApplication, u"Other", u"Key"), u"other");
}

TEST_F(RegistrySettingsTest, SectionIsDeletedInAnOperation_NextSaveCreatesIt) {
    const Operation operation;
    settings_->Save(kTestApplication, u"Section", u"Key", u"abc");
    ClearTestApplication();
    settings_->Save(kTestApplication, u"Section", u"Key", u"def");
    EXPECT_EQ(Get(), u"def");
}

TEST_F(RegistrySettingsTest, SectionIsDeletedAfterAnOperation_NextOperationFindsNothing) {
    Write(REG_SZ, L"abc", 8);
    {
        const Operation operation;
        EXPECT_EQ(Get(), u"abc");
    }
    ClearTestApplication();
    const Operation next;
    EXPECT_EQ(Get(), std::nullopt);
}

}  // namespace
}  // namespace runtime::win32
