#include "services/ProcessValues.h"

#include <gtest/gtest.h>

#include "tests/support/ComponentFixture.h"

namespace services {
namespace {

using SuiteValues = tests::HeadlessComponentTest;

TEST_F(SuiteValues, InitNumberFormats_StoresTheSuitesPatterns) {
    InitNumberFormats();
    EXPECT_EQ(Values().numberFormats.coordinate, u"#0.0000#");
    EXPECT_EQ(Values().numberFormats.value, u"###0.000#");
    EXPECT_EQ(Values().numberFormats.oneDecimal, u"##0.0#");
    EXPECT_EQ(Values().numberFormats.fixedCoordinate, u"#0.000");
    EXPECT_EQ(Values().numberFormats.fixedValue, u"###0.0");
}

}  // namespace
}  // namespace services
