#include "runtime/Operation.h"

#include <gtest/gtest.h>

namespace runtime {
namespace {

class OperationTest : public testing::Test {
 protected:
    bool Keep() {
        return Operation::KeepUntilEnd([this] { ++forgotten_; });
    }
    int forgotten_ = 0;
};

TEST_F(OperationTest, NoOperation_ResultsMustNotBeStored) {
    EXPECT_FALSE(Keep());
    EXPECT_EQ(forgotten_, 0);
}

TEST_F(OperationTest, OperationEnds_ForgetIsCalledOnce) {
    {
        const Operation operation;
        EXPECT_TRUE(Keep());
        EXPECT_EQ(forgotten_, 0);
    }
    EXPECT_EQ(forgotten_, 1);
    EXPECT_FALSE(Keep());
    { const Operation next; }
    EXPECT_EQ(forgotten_, 1);
}

TEST_F(OperationTest, InnerOperationEnds_ForgetIsNotCalled) {
    {
        const Operation outer;
        {
            const Operation inner;
            EXPECT_TRUE(Keep());
        }
        EXPECT_EQ(forgotten_, 0);
        EXPECT_TRUE(Keep());
    }
    EXPECT_EQ(forgotten_, 2);
}

TEST_F(OperationTest, OperationIsAbandoned_ForgetIsCalledAtOnce) {
    const Operation lost;
    EXPECT_TRUE(Keep());
    Operation::Abandon();
    EXPECT_EQ(forgotten_, 1);
    EXPECT_FALSE(Keep());
}

}  // namespace
}  // namespace runtime
