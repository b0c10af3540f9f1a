#include "runtime/Font.h"

#include <gtest/gtest.h>

namespace runtime {
namespace {

TEST(Font, IsEqualOnlyIfEveryValueIsEqual) {
    EXPECT_EQ(Font{}, (Font{.name = u"MS Sans Serif", .size = 8.25F, .charset = 0, .bold = false}));
    EXPECT_NE(Font{}, Font{.name = u"Tahoma"});
    EXPECT_NE(Font{}, Font{.size = 9});
    EXPECT_NE(Font{}, Font{.charset = 128});
    EXPECT_NE(Font{}, Font{.bold = true});
}

}  // namespace
}  // namespace runtime
