#include "runtime/Picture.h"

#include <gtest/gtest.h>

namespace runtime {
namespace {

TEST(PictureColour, IsOneOfTheSixteenByItsHexadecimalDigit) {
    EXPECT_EQ(PictureColour('0'), 0x000000u);
    EXPECT_EQ(PictureColour('1'), 0x000080u);
    EXPECT_EQ(PictureColour('9'), 0x0000FFu);
    EXPECT_EQ(PictureColour('A'), 0x00FF00u);
    EXPECT_EQ(PictureColour('F'), 0xFFFFFFu);
}

TEST(PictureColour, IsTransparentForAnythingElse) {
    for (const char pixel : {'.', ' ', '/', ':', '@', 'G', 'a'}) EXPECT_EQ(PictureColour(pixel), std::nullopt) << pixel;
}

TEST(Picture, HasTheSizeOfItsRows) {
    constexpr std::string_view kRows[] = {"01.", "23."};
    EXPECT_EQ(Picture{kRows}.Width(), 3);
    EXPECT_EQ(Picture{kRows}.Height(), 2);
    EXPECT_EQ(Picture{}.Width(), 0);
}

}  // namespace
}  // namespace runtime
