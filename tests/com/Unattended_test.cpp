// A client that runs without a user, with two apartments.
#include "tests/com/ClientProcess.h"
#include "tests/com/ComponentLibrary.h"

namespace tests::com {
namespace {

constexpr const wchar_t* kVariable = L"K4TBACKPROCESS_UNATTENDED";

/// Calls between apartments need the registered description of the interfaces.
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

TEST_F(UnattendedClient, CommandsFailInTwoApartments_NoneShowsAMessage) {
    const ClientProcess client(L"unattended \"" + ComponentDll().wstring() + L'"');
    EXPECT_EQ(0u, client.ExitCode());
}

}  // namespace
}  // namespace tests::com
