#include "runtime/win32/GdiMeasure.h"

#include <algorithm>

#include "runtime/win32/OutOfResources.h"

namespace runtime::win32 {

GdiMeasure::GdiMeasure(HFONT font) : context_(CreateCompatibleDC(nullptr)), former_(nullptr) {
    if (!context_) throw OutOfResources(u"cannot create a device context");
    former_ = SelectObject(context_, font);
}

GdiMeasure::~GdiMeasure() {
    SelectObject(context_, former_);
    DeleteDC(context_);
}

int GdiMeasure::Width(StringView run) {
    SIZE size{};
    GetTextExtentPoint32W(context_, Wide(run.data()), static_cast<int>(run.size()), &size);
    return static_cast<int>(size.cx);
}

std::size_t GdiMeasure::Fit(StringView run, int width) {
    int fitting = 0;
    SIZE size{};
    GetTextExtentExPointW(context_, Wide(run.data()), static_cast<int>(run.size()), std::max(0, width), &fitting,
                          nullptr, &size);
    return static_cast<std::size_t>(std::max(0, fitting));
}

int GdiMeasure::LineHeight() {
    TEXTMETRICW metrics{};
    GetTextMetricsW(context_, &metrics);
    return static_cast<int>(metrics.tmHeight);
}

}  // namespace runtime::win32
