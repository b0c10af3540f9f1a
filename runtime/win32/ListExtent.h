// How far a list scrolls sideways: as far as its widest item.
#pragma once

#include <optional>

#include "runtime/win32/GdiMeasure.h"

namespace runtime::win32 {

class ListExtent {
 public:
    /// `message` sets the extent of `list`.
    ListExtent(HWND list, UINT message) : list_(list), message_(message) {}

    /// The list has one item more.
    void Take(StringView item);
    /// The list has no items, or its font has changed and its items are taken anew.
    void Reset();

 private:
    void Set(int width);

    HWND list_;
    UINT message_;
    int width_ = 0;
    std::optional<GdiMeasure> measure_;  ///< in the list's font; made for the first item
};

}  // namespace runtime::win32
