#include "runtime/Ports.h"

#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "tests/support/ErrorOf.h"

namespace runtime {
namespace {

TEST(Ports, NoneChosen_IsError91) {
    EXPECT_EQ(tests::ErrorOf([] { CurrentPorts(); }), kObjectVariableNotSet);
}

}  // namespace
}  // namespace runtime
