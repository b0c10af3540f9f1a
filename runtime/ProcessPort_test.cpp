// What every implementation of the process port must do. Runs once for each of them: the fixed one everywhere, the
// system's under Windows. What other processes see of a claim takes several of them: Win32Process_test.cpp.
#include "runtime/ProcessPort_test.h"

namespace runtime {
namespace {

TEST_P(ProcessPortTest, ProcessThatHoldsTheClaimIsStillTheFirst) {
    const auto first = process_->ClaimFirstInstance();
    const auto second = process_->ClaimFirstInstance();
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
}

TEST_P(ProcessPortTest, ClaimOutlivesTheObjectThatGaveIt) {
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
