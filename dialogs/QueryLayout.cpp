#include "dialogs/QueryLayout.h"

#include <algorithm>

#include "runtime/Numbers.h"

namespace dialogs {
namespace {

using runtime::ToInt32;
using runtime::Twips;

constexpr Twips kLabelMargin = 120;
constexpr double kSpareLines = 3;
constexpr std::int32_t kMinHeight = 2000;
constexpr std::int32_t kMinTallHeight = 2400;
constexpr Twips kButtonGap = 120;
constexpr Twips kRoomLeftOnScreen = 1200;
constexpr Twips kInputGap = 120;
constexpr Twips kBottomGap = 60;

bool IsTall(std::int32_t kind) {
    return kind == kTextBlock || kind == kList;
}

std::int32_t LinesFor(const QueryMeasures& measures) {
    const double share = measures.promptWidth / (measures.labelWidth - kLabelMargin);
    return ToInt32(ToInt32(share) + static_cast<double>(measures.promptPieces) + kSpareLines);
}

}  // namespace

std::int32_t QueryFormHeight(const QueryMeasures& measures) {
    const double lines = LinesFor(measures);
    const std::int32_t natural = ToInt32(lines * measures.lineHeight + measures.inputHeight);
    std::int32_t height = std::max(natural, IsTall(measures.kind) ? kMinTallHeight : kMinHeight);
    if (measures.showsButton) height = ToInt32(static_cast<double>(height) + kButtonGap + measures.buttonHeight);
    const bool isTooHigh = static_cast<double>(measures.screenHeight) < height;
    return isTooHigh ? ToInt32(measures.screenHeight - kRoomLeftOnScreen) : height;
}

QueryPlaces PlacesInQuery(Twips innerHeight, const QueryMeasures& measures) {
    const Twips buttonHeight = measures.showsButton ? measures.buttonHeight : 0;
    return {
        .labelHeight = innerHeight - measures.inputHeight - kInputGap - buttonHeight,
        .inputTop = innerHeight - measures.inputHeight - kBottomGap - buttonHeight,
        .buttonTop = innerHeight - buttonHeight,
    };
}

}  // namespace dialogs
