#include "runtime/win32/Switch.h"

#include <gtest/gtest.h>

namespace runtime::win32 {
namespace {

constexpr const wchar_t* kVariable = L"K4T_TEST_SWITCH";

bool IsOnWith(const wchar_t* value) {
    SetEnvironmentVariableW(kVariable, value);
    const bool isOn = IsSwitchedOn(kVariable);
    SetEnvironmentVariableW(kVariable, nullptr);
    return isOn;
}

TEST(Switch, IsOnWithTheValue1Only) {
    EXPECT_TRUE(IsOnWith(L"1"));
    EXPECT_FALSE(IsOnWith(nullptr));
    for (const wchar_t* const value : {L"", L"0", L"2", L"11", L"01", L" 1", L"1 ", L"yes", L"true"}) {
        EXPECT_FALSE(IsOnWith(value)) << value;
    }
}

}  // namespace
}  // namespace runtime::win32
