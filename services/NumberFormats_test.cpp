#include "services/NumberFormats.h"

#include <gtest/gtest.h>

namespace services {
namespace {

TEST(NumberFormats, SetUpGivesTheSuitesPatterns) {
    InitNumberFormats();
    EXPECT_EQ(numberFormats.coordinate, u"#0.0000#");
    EXPECT_EQ(numberFormats.value, u"###0.000#");
    EXPECT_EQ(numberFormats.oneDecimal, u"##0.0#");
    EXPECT_EQ(numberFormats.fixedCoordinate, u"#0.000");
    EXPECT_EQ(numberFormats.fixedValue, u"###0.0");
    numberFormats = {};
}

}  // namespace
}  // namespace services
