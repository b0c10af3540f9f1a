#include "runtime/headless/FixedProcess.h"

#include "runtime/ProcessPort_test.h"

namespace runtime::headless {
namespace {

std::unique_ptr<ProcessPort> MakeFixedProcess() {
    return std::make_unique<FixedProcess>();
}
INSTANTIATE_TEST_SUITE_P(Fixed, ProcessPortTest, testing::Values(&MakeFixedProcess));

TEST(FixedProcess, ReturnsTheSetValues) {
    FixedProcess process;
    EXPECT_EQ(process.CommandLine(), u"");
    process.SetCommandLine(u"\"/sys:C:\\cad\"");
    process.SetComponentFolder(u"D:\\");
    EXPECT_EQ(process.CommandLine(), u"\"/sys:C:\\cad\"");
    EXPECT_EQ(process.ComponentFolder(), u"D:\\");
}

TEST(FixedProcess, EarlierInstance_ClaimIsRefused) {
    FixedProcess process;
    process.SetEarlierInstance(true);
    EXPECT_EQ(process.ClaimFirstInstance(), nullptr);
    process.SetEarlierInstance(false);
    EXPECT_NE(process.ClaimFirstInstance(), nullptr);
}

TEST(FixedProcess, CountsTheClaimsThatAreHeld) {
    FixedProcess process;
    auto first = process.ClaimFirstInstance();
    const auto second = process.ClaimFirstInstance();
    EXPECT_EQ(process.HeldClaims(), 2);
    first.reset();
    EXPECT_EQ(process.HeldClaims(), 1);
}

}  // namespace
}  // namespace runtime::headless
