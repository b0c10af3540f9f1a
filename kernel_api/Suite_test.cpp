// The kernel, the reader or the splitter can be missing. A missing part is always error 91.
#include "kernel_api/Kernel.h"

#include <gtest/gtest.h>

#include "kernel_api/Reader.h"
#include "kernel_api/Splitter.h"
#include "runtime/Error.h"
#include "tests/support/ErrorOf.h"

namespace kernel_api {
namespace {

TEST(SuiteParts, MissingPart_IsError91) {
    EXPECT_EQ(tests::ErrorOf([] { CurrentKernel(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(tests::ErrorOf([] { CurrentReader(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(tests::ErrorOf([] { CurrentSplitter(); }), runtime::kObjectVariableNotSet);
}

}  // namespace
}  // namespace kernel_api
