#include "host/ProcessLife.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"

namespace host {
namespace {

using ::testing::ElementsAre;

class ForgettingForms : public tests::HeadlessComponentTest {
 protected:
    tests::HandledForm first_{u"first"};
    tests::HandledForm second_{u"second"};
};

TEST_F(ForgettingForms, TakesEveryFormAwayWithoutItsHandlers) {
    first_.EnsureLoaded();
    second_.EnsureLoaded();
    second_.refusesQuery = true;
    EXPECT_EQ(LoadedWindowCount(), 2u);
    ForgetForms();
    EXPECT_EQ(LoadedWindowCount(), 0u);
    EXPECT_FALSE(first_.IsLoaded());
    EXPECT_THAT(first_.log, ElementsAre("load"));
    EXPECT_THAT(second_.log, ElementsAre("load"));
}

}  // namespace
}  // namespace host
