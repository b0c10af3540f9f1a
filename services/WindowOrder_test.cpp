#include "services/WindowOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/Form.h"
#include "tests/support/RuntimeFixture.h"

namespace services {
namespace {

class WindowOrder : public tests::HeadlessTest {};

TEST_F(WindowOrder, SetAndCleared_WindowIsTopMostThenOrdinary) {
    runtime::Form form({.name = u"form", .caption = u"", .inner = {3000, 1500}});
    SetWindowTopMost(form, true);
    SetWindowTopMost(form, false);
    EXPECT_THAT(memory_.windows.Last().topMost, testing::ElementsAre(true, false));
    form.Unload();
}

}  // namespace
}  // namespace services
