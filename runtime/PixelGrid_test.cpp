#include "runtime/PixelGrid.h"

#include <gtest/gtest.h>

namespace runtime {
namespace {

TEST(PixelGrid, RoundsToTheNearestPixel_HalfPixelsAwayFromZero) {
    const PixelGrid grid(96);  // 15 twips per pixel
    EXPECT_EQ(grid.ToPixels(0), 0);
    EXPECT_EQ(grid.ToPixels(7.25F), 0);
    EXPECT_EQ(grid.ToPixels(7.5F), 1);
    EXPECT_EQ(grid.ToPixels(-7.25F), 0);
    EXPECT_EQ(grid.ToPixels(-7.5F), -1);
    EXPECT_EQ(grid.ToPixels(8000), 533);
}

TEST(PixelGrid, FollowsTheDpi) {
    EXPECT_EQ(PixelGrid(120).ToTwips(1), 12);
    EXPECT_EQ(PixelGrid(144).ToTwips(800), 8000);
    EXPECT_EQ(PixelGrid(192).ToTwips(1), 7.5F);
    EXPECT_EQ(PixelGrid(192).ToPixels(15), 2);
}

TEST(PixelGrid, KeepsWholePixels_From72To480Dpi) {
    for (int dpi = 72; dpi <= 480; ++dpi) {
        const PixelGrid grid(dpi);
        for (int pixels = -4000; pixels <= 4000; pixels += 7) {
            ASSERT_EQ(grid.ToPixels(grid.ToTwips(pixels)), pixels) << dpi;
        }
    }
}

TEST(PixelGrid, LargeLength_IsLimitedToTheRangeOfWindowCoordinates) {
    const PixelGrid grid(96);
    EXPECT_EQ(grid.ToPixels(1e9F), 32767);
    EXPECT_EQ(grid.ToPixels(-1e9F), -32767);
}

TEST(PixelGrid, RoundsPositionAndSizeSeparately) {
    EXPECT_EQ(PixelGrid(96).Whole({8527.5F, 6412.5F, 2145, 2530}), (Rect{8535, 6420, 2145, 2535}));
    EXPECT_EQ(PixelGrid(96).Whole({-7.25F, 1501.5F, 8000, 3000}), (Rect{0, 1500, 7995, 3000}));
}

}  // namespace
}  // namespace runtime
