// Compares the query dialog's layout with numbers calculated by hand. The last test compares it with a slow layout.
// Lines are 195 twips high if a test sets no other height.
#include "dialogs/QueryLayout.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "runtime/Error.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/SlowQueryLayout.h"

namespace dialogs {
namespace {

QueryMeasures Measures(std::int32_t kind, runtime::Twips promptWidth, std::int32_t pieces) {
    return {
        .kind = kind,
        .labelWidth = 4155,
        .promptWidth = promptWidth,
        .promptPieces = pieces,
        .lineHeight = 195,
        .inputHeight = kind == kTextBlock ? 765.0F
                       : kind == kList    ? 840.0F
                                          : 315.0F,
        .buttonHeight = 375,
        .screenHeight = 15360,
    };
}

QueryMeasures WithButton(QueryMeasures measures) {
    measures.showsButton = true;
    return measures;
}

TEST(QueryLayout, ShortPrompt_FormHasTheMinimumHeightOfTheKind) {
    // One piece and three spare lines are 4 x 195 = 780 twips. The input control adds 315, 765 or 840 twips.
    for (const std::int32_t kind : {0, 1, 2, 3, 6, 9, -1}) EXPECT_EQ(QueryFormHeight(Measures(kind, 450, 1)), 2000);
    EXPECT_EQ(QueryFormHeight(Measures(kTextBlock, 450, 1)), 2400);
    EXPECT_EQ(QueryFormHeight(Measures(kList, 450, 1)), 2400);
}

TEST(QueryLayout, TenPieces_HeightIsLinesPlusControl) {
    // The prompt is 5400 wide, and a line holds 4155 - 120 = 4035. 5400 / 4035 is 1.34, which is rounded to 1. The 1 +
    // 10 + 3 lines are 14 x 195 = 2730 twips high.
    EXPECT_EQ(QueryFormHeight(Measures(kText, 5400, 10)), 2730 + 315);
    EXPECT_EQ(QueryFormHeight(Measures(kDropDown, 5400, 10)), 2730 + 315);
    EXPECT_EQ(QueryFormHeight(Measures(kTextBlock, 5400, 10)), 2730 + 765);
    EXPECT_EQ(QueryFormHeight(Measures(kList, 5400, 10)), 2730 + 840);
}

TEST(QueryLayout, PromptWidthInLines_RoundsHalvesToEven) {
    const auto linesFor = [](runtime::Twips width) {
        return (QueryFormHeight(Measures(kText, width, 20)) - 315) / 195;
    };
    EXPECT_EQ(linesFor(0), 23);
    EXPECT_EQ(linesFor(2017.5F), 23);   // 0.5 lines
    EXPECT_EQ(linesFor(2018), 24);      // a little more than 0.5 lines
    EXPECT_EQ(linesFor(6052.5F), 25);   // 1.5 lines
    EXPECT_EQ(linesFor(10087.5F), 25);  // 2.5 lines
    EXPECT_EQ(linesFor(40350), 33);
}

TEST(QueryLayout, FormHeight_RoundsHalvesToEven) {
    QueryMeasures measures = Measures(kText, 0, 17);  // 20 lines
    measures.lineHeight = 195.125F;                   // 3902.5 + 315 = 4217.5
    EXPECT_EQ(QueryFormHeight(measures), 4218);
    measures.lineHeight = 195.375F;  // 3907.5 + 315 = 4222.5
    EXPECT_EQ(QueryFormHeight(measures), 4222);
}

TEST(QueryLayout, ExtraButton_AddsItsHeightAndAGap) {
    EXPECT_EQ(QueryFormHeight(WithButton(Measures(kText, 450, 1))), 2000 + 120 + 375);
    EXPECT_EQ(QueryFormHeight(WithButton(Measures(kList, 450, 1))), 2400 + 120 + 375);
    EXPECT_EQ(QueryFormHeight(WithButton(Measures(kText, 5400, 10))), 3045 + 120 + 375);
}

TEST(QueryLayout, HigherThanTheScreen_HeightIsLimited) {
    // 103 lines are 20085 twips high.
    EXPECT_EQ(QueryFormHeight(Measures(kText, 90, 100)), 15360 - 1200);
    EXPECT_EQ(QueryFormHeight(WithButton(Measures(kList, 90, 100))), 15360 - 1200);
}

TEST(QueryLayout, AsHighAsTheScreen_HeightIsNotLimited) {
    QueryMeasures measures = Measures(kText, 450, 1);
    measures.screenHeight = 2000;
    EXPECT_EQ(QueryFormHeight(measures), 2000);
    measures.screenHeight = 1999;
    EXPECT_EQ(QueryFormHeight(measures), 799);
    EXPECT_EQ(QueryFormHeight(WithButton(measures)), 799);
}

TEST(QueryLayout, HeightBeyond32Bits_IsOverflow) {
    EXPECT_EQ(tests::ErrorOf([] { QueryFormHeight(Measures(kText, 0, 2'147'483'647)); }), runtime::kOverflow);
    EXPECT_EQ(tests::ErrorOf([] { QueryFormHeight(Measures(kText, 0, 20'000'000)); }), runtime::kOverflow);
    EXPECT_EQ(tests::ErrorOf([] { QueryFormHeight(Measures(kText, 1e20F, 1)); }), runtime::kOverflow);
}

TEST(QueryLayout, InputIsAtTheBottomAndTheLabelFillsTheRest) {
    // The frame and the title bar use 375 twips. Therefore the inner height for the outer height 2000 is 1625.
    EXPECT_EQ(PlacesInQuery(1625, Measures(kText, 0, 1)), (QueryPlaces{1190, 1250, 1625}));
    EXPECT_EQ(PlacesInQuery(2025, Measures(kTextBlock, 0, 1)), (QueryPlaces{1140, 1200, 2025}));
    EXPECT_EQ(PlacesInQuery(2025, Measures(kList, 0, 1)), (QueryPlaces{1065, 1125, 2025}));
}

TEST(QueryLayout, ExtraButtonIsBelowTheInput) {
    EXPECT_EQ(PlacesInQuery(2120, WithButton(Measures(kText, 0, 1))), (QueryPlaces{1310, 1370, 1745}));
    EXPECT_EQ(PlacesInQuery(2520, WithButton(Measures(kList, 0, 1))), (QueryPlaces{1185, 1245, 2145}));
}

/// Makes measures of all kinds. The sequence is always the same. Many prompt widths need exactly n + 0.5 lines.
class MeasuresMaker {
 public:
    QueryMeasures Next() {
        const runtime::Twips labelWidth = Pick(2) == 0 ? 4155.0F : 121 + Halves(10'000);
        const runtime::Twips tie = (labelWidth - 120) * (static_cast<runtime::Twips>(Pick(20)) + 0.5F);
        return {
            .kind = static_cast<std::int32_t>(Pick(8)) - 1,
            .labelWidth = labelWidth,
            .promptWidth = Pick(4) == 0 ? tie : Halves(Pick(4) == 0 ? 1'000'000 : 30'000),
            .promptPieces = static_cast<std::int32_t>(Pick(20) == 0 ? Pick(2'147'483'646) + 1 : Pick(100) + 1),
            .lineHeight = Halves(600) + 0.5F,
            .inputHeight = Halves(2'000),
            .buttonHeight = Halves(1'000),
            .showsButton = Pick(2) == 0,
            .screenHeight = 600 + Halves(30'000),
        };
    }
    runtime::Twips Frame() { return Halves(1'000); }

 private:
    std::size_t Pick(std::size_t count) { return random_() % count; }
    /// A multiple of 0.5, from 0 to below `end`.
    runtime::Twips Halves(std::size_t end) { return static_cast<runtime::Twips>(Pick(2 * end)) / 2; }

    std::minstd_rand random_{4711};
};

TEST(QueryLayout, GeneratedMeasures_AgreeWithTheSlowLayout) {
    MeasuresMaker maker;
    int overflows = 0;
    for (int i = 0; i < 100'000; ++i) {
        const QueryMeasures measures = maker.Next();
        const runtime::Twips frame = maker.Frame();
        const std::optional<tests::SlowPlaces> slow = tests::SlowQueryLayout::Run(measures, frame);
        if (!slow) {
            ++overflows;
            ASSERT_EQ(tests::ErrorOf([&] { QueryFormHeight(measures); }), runtime::kOverflow) << i;
            continue;
        }
        const std::int32_t height = QueryFormHeight(measures);
        ASSERT_EQ(height, slow->height) << i;
        const QueryPlaces places = PlacesInQuery(static_cast<runtime::Twips>(height) - frame, measures);
        ASSERT_EQ(places, (QueryPlaces{slow->labelHeight, slow->inputTop, slow->buttonTop})) << i;
    }
    EXPECT_GT(overflows, 1000);
}

}  // namespace
}  // namespace dialogs
