// How far a list scrolls sideways: as far as its widest item, if that is wider than the list.
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
    void Set(int extent);

    HWND list_;
    UINT message_;
    int widest_ = 0;                     ///< of the items
    int extent_ = 0;                     ///< what the list was told
    std::optional<GdiMeasure> measure_;  ///< in the list's font; made for the first item
};

}  // namespace runtime::win32
