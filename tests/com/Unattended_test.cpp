// Tests a client that runs without a user and calls the component from two apartments.
#include "tests/com/ClientProcess.h"
#include "tests/com/ComponentLibrary.h"

namespace tests::com {
namespace {

constexpr const wchar_t* kVariable = L"K4TBACKPROCESS_UNATTENDED";

/// Registers the component, because calls between apartments need the registered type library.
class UnattendedClient : public testing::Test {
 protected:
    UnattendedClient() {
        EXPECT_EQ(S_OK, library_.Register());
        SetEnvironmentVariableW(kVariable, L"1");
    }
    ~UnattendedClient() override {
        SetEnvironmentVariableW(kVariable, nullptr);
        EXPECT_EQ(S_OK, library_.Unregister());
    }

    const ComponentLibrary library_;
};

TEST_F(UnattendedClient, CommandsFailInTwoApartments_NoMessageIsShown) {
    const ClientProcess client(L"unattended \"" + ComponentDll().wstring() + L'"');
    EXPECT_EQ(0u, client.ExitCode());
}

}  // namespace
}  // namespace tests::com
