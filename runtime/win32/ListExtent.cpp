#include "runtime/win32/ListExtent.h"

namespace runtime::win32 {
namespace {

/// A window's coordinates end here.
constexpr int kWidestItem = 32767;

int WidthOfItem(StringView item, GdiMeasure& measure) {
    int width = 0;
    while (!item.empty() && width < kWidestItem) {
        const StringView run = item.substr(0, TextMeasure::kMaxRun);
        width += measure.Width(run);
        item.remove_prefix(run.size());
    }
    return width;
}

}  // namespace

void ListExtent::Take(StringView item) {
    if (!measure_) measure_.emplace(reinterpret_cast<HFONT>(SendMessageW(list_, WM_GETFONT, 0, 0)));
    const int width = WidthOfItem(item, *measure_);
    if (width > width_) Set(width);
}

void ListExtent::Reset() {
    measure_.reset();
    if (width_ > 0) Set(0);
}

void ListExtent::Set(int width) {
    width_ = width;
    // The list leaves some pixels before the text; as many behind it make the last character stand clear of the edge.
    const int margins = width > 0 ? 2 * GetSystemMetrics(SM_CXEDGE) : 0;
    SendMessageW(list_, message_, static_cast<WPARAM>(width + margins), 0);
}

}  // namespace runtime::win32
