#include "runtime/headless/FixedMeasure.h"

#include <gtest/gtest.h>

namespace runtime::headless {
namespace {

TEST(FixedMeasure, HasRoundNumbersAtTheDesignSize) {
    FixedMeasure measure{Font{}};
    EXPECT_EQ(measure.Width(u""), 0);
    EXPECT_EQ(measure.Width(u"Yes"), 270);
    EXPECT_EQ(measure.LineHeight(), 195);
}

TEST(FixedMeasure, IsProportionalToTheFontSize) {
    FixedMeasure large{Font{.size = 11}};
    EXPECT_EQ(large.Width(u"ab"), 240);
    EXPECT_EQ(large.LineHeight(), 260);
    FixedMeasure rounded{Font{.size = 12}};
    EXPECT_EQ(rounded.Width(u"a"), 131);   // 130.9
    EXPECT_EQ(rounded.LineHeight(), 284);  // 283.6
}

TEST(FixedMeasure, WidthAndHeightAreAtLeastOne) {
    FixedMeasure measure{Font{.size = 0}};
    EXPECT_EQ(measure.Width(u"abc"), 3);
    EXPECT_EQ(measure.Fit(u"abc", 2), 2U);
    EXPECT_EQ(measure.LineHeight(), 1);
}

TEST(FixedMeasure, FitsWholeCharactersOnly) {
    FixedMeasure measure{Font{}};
    EXPECT_EQ(measure.Fit(u"abc", 0), 0U);
    EXPECT_EQ(measure.Fit(u"abc", 179), 1U);
    EXPECT_EQ(measure.Fit(u"abc", 180), 2U);
    EXPECT_EQ(measure.Fit(u"abc", 9999), 3U);
}

TEST(FixedMeasure, MeasuresALayoutInTwips) {
    FixedMeasure measure{Font{}};
    const TextLayout layout = LayOut(u"Save it?\nReally", kNoWrap, measure);
    EXPECT_EQ(layout.width, 720);
    EXPECT_EQ(layout.height, 390);
}

}  // namespace
}  // namespace runtime::headless
