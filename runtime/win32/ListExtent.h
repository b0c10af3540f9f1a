// Sets how far a list scrolls sideways. If the widest item is wider than the list, the list scrolls to the end of that
// item.
#pragma once

#include <optional>

#include "runtime/win32/GdiMeasure.h"

namespace runtime::win32 {

class ListExtent {
 public:
    /// `message` is the window message that sets the extent of `list`.
    ListExtent(HWND list, UINT message) : list_(list), message_(message) {}

    /// Call it after an item was added to the list.
    void Take(StringView item);
    /// Call it when the list has no items. Also call it when the list's font has changed, and then call Take for each
    /// item. Returns true if the list may have had a scroll bar.
    bool Reset();

 private:
    void Set(int extent);

    HWND list_;
    UINT message_;
    int widest_ = 0;                     ///< width of the widest item
    int extent_ = 0;                     ///< the extent that was sent to the list
    std::optional<GdiMeasure> measure_;  ///< measures in the list's font; created for the first item
};

}  // namespace runtime::win32
