#include "kernel_api/Kernel.h"

#include <gtest/gtest.h>

namespace kernel_api {
namespace {

TEST(TextAddress, AddressesWithin65535OfZero_AreNoTexts) {
    for (const TextPointer pointer : {0, 1, 0xFFFF, -1, -0xFFFF}) EXPECT_FALSE(IsTextAddress(pointer)) << pointer;
    for (const TextPointer pointer : {0x10000, 0x7FFFFFFF, -0x7FFFFFFF, -0x10000}) {
        EXPECT_TRUE(IsTextAddress(pointer)) << pointer;
    }
}

}  // namespace
}  // namespace kernel_api
