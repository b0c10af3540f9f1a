// A control with a list of items. If the widest item is wider than the list, the user can scroll the list sideways to
// the end of that item.
#pragma once

#include <optional>

#include "runtime/win32/GdiMeasure.h"
#include "runtime/win32/Win32Control.h"

namespace runtime::win32 {

class Win32List : public Win32Control, protected NativeList {
 public:
    void SetFont(const Font& font) override;
    NativeList* List() override { return this; }
    int ChosenItem() override;

 protected:
    /// The window messages for a list. List boxes and combo boxes have different messages with the same meaning.
    struct Messages {
        UINT add, clear, count, textLength, text, setSelection, selection, setExtent;
    };
    Win32List(Win32Window& parent, Win32Windows& system, ControlKind kind, int id, const WindowKind& windowKind,
              const Messages& messages);

    void Add(const String& item) override;
    void SetRedraw(bool redraws) override;
    void Clear() override { RemoveItems(); }
    void Choose(int index) override;
    /// Returns true if the list may have had a horizontal scroll bar.
    bool RemoveItems();
    /// Returns an empty text if the list has no such item.
    String TextOfItem(int item) const;

 private:
    LRESULT Send(UINT message, int number = 0, LPARAM text = 0) const;
    /// Lets the list scroll to the end of `item`.
    void Measure(StringView item);
    /// Returns true if the list may have had a horizontal scroll bar.
    bool ResetExtent();
    void SetExtent(int extent);

    const Messages messages_;
    int widest_ = 0;                     ///< width of the widest item
    int extent_ = 0;                     ///< horizontal extent of the list; 0 if the list does not scroll sideways
    std::optional<GdiMeasure> measure_;  ///< measures in the list's font; created for the first item
};

}  // namespace runtime::win32
