// Tests every ProcessPort. Runs with FixedProcess on every platform, and with the real process on Windows.
// Win32Process_test.cpp tests claims of several processes.
#include "runtime/ProcessPort_test.h"

namespace runtime {
namespace {

TEST_P(ProcessPortTest, SecondClaimInTheSameProcess_Succeeds) {
    const auto first = process_->ClaimFirstInstance();
    const auto second = process_->ClaimFirstInstance();
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
}

TEST_P(ProcessPortTest, Claim_OutlivesThePort) {
    const auto claim = process_->ClaimFirstInstance();
    process_.reset();
    EXPECT_NE(claim, nullptr);
}

TEST_P(ProcessPortTest, ComponentFolderHasNoFinalBackslash) {
    const String folder = process_->ComponentFolder();
    ASSERT_GT(folder.size(), 3u);
    EXPECT_NE(folder.back(), u'\\');
}

}  // namespace
}  // namespace runtime
