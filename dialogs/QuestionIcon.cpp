#include "dialogs/QuestionIcon.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace dialogs {
namespace {

// 0 black, 8 grey, 9 blue, F white.
// One row of the picture a line.
// clang-format off
constexpr std::string_view kRows[] = {
    "................................",
    "............0000000.............",
    ".........000FFFFFFF000..........",
    ".......00FFFFFFFFFFFFF00........",
    ".....00FFFFFFFFFFFFFFFFF00......",
    "....0FFFFFFFFFFFFFFFFFFFFF0.....",
    "...0FFFFFFFF999999FFFFFFFFF0....",
    "...0FFFFFFF99999999FFFFFFFF08...",
    "..0FFFFFFF999FFFF999FFFFFFFF0...",
    "..0FFFFFFF999FFFF999FFFFFFFF08..",
    ".0FFFFFFFFFFFFFFF999FFFFFFFFF0..",
    ".0FFFFFFFFFFFFFF999FFFFFFFFFF08.",
    ".0FFFFFFFFFFFFF999FFFFFFFFFFF08.",
    ".0FFFFFFFFFFFF999FFFFFFFFFFFF08.",
    ".0FFFFFFFFFFFF999FFFFFFFFFFFF08.",
    ".0FFFFFFFFFFFF999FFFFFFFFFFFF08.",
    ".0FFFFFFFFFFFFFFFFFFFFFFFFFFF08.",
    "..0FFFFFFFFFFF999FFFFFFFFFFF088.",
    "..0FFFFFFFFFFF999FFFFFFFFFFF08..",
    "...0FFFFFFFFFFFFFFFFFFFFFFF088..",
    "...0FFFFFFFFFFFFFFFFFFFFFFF08...",
    "....0FFFFFFFFFFFFFFFFFFFFF088...",
    ".....00FFFFFFFFFFFFFFFFF0088....",
    "......800FFFFFFFFFFFFFF0888.....",
    "........8000FFFFFFFFFF088.......",
    "..........880000000FFF08........",
    ".............88888800FF0........",
    "....................80F08.......",
    "......................008.......",
    ".......................08.......",
    "........................0.......",
    ".........................8......",
};
// clang-format on

constexpr std::size_t kSide = 32;
static_assert(std::size(kRows) == kSide);
static_assert(std::ranges::all_of(kRows, [](std::string_view row) { return row.size() == kSide; }));

}  // namespace

const runtime::Picture kQuestionIcon{kRows};

}  // namespace dialogs
