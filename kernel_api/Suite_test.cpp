// Tests the functions that return the kernel, the reader and the splitter. Each throws error 91 if its part is not set.
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
