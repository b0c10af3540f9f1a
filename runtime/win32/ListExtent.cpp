#include "runtime/win32/ListExtent.h"

namespace runtime::win32 {
namespace {

/// The largest coordinate in a window.
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
    if (width <= widest_) return;
    widest_ = width;
    // The list leaves some pixels before the text. Add the same number after the text, so that the last character does
    // not touch the edge.
    const int needed = width + 2 * GetSystemMetrics(SM_CXEDGE);
    RECT client{};
    GetClientRect(list_, &client);
    if (needed > client.right - GetSystemMetrics(SM_CXVSCROLL)) Set(needed);
}

bool ListExtent::Reset() {
    measure_.reset();
    widest_ = 0;
    if (extent_ == 0) return false;
    Set(0);
    return true;
}

void ListExtent::Set(int extent) {
    extent_ = extent;
    SendMessageW(list_, message_, static_cast<WPARAM>(extent), 0);
}

}  // namespace runtime::win32
