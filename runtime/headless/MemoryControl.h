// A control's window in memory: holds what its form set, and does with keys what a window of its kind does. A test
// plays the user on it through MemoryWindow::Press and MemoryWindow::Type.
#pragma once

#include <utility>
#include <vector>

#include "runtime/WindowsPort.h"

namespace runtime::headless {

class MemoryWindow;

struct MemoryControl : NativeControl, NativeEdit, NativeList {
    MemoryControl(MemoryWindow& formWindow, ControlLook controlLook)
        : window(formWindow), look(std::move(controlLook)) {}

    void SetBounds(const Rect& newBounds) override { bounds = newBounds; }
    void SetText(const String& newText) override;
    void SetFont(const Font& newFont) override { font = newFont; }
    void SetVisible(bool newVisible) override { visible = newVisible; }
    void SetFocus() override;
    bool HasKeyboard() const override;
    void Refresh() override { ++refreshes; }
    void SetAccessibleName(const String& name) override { accessibleName = name; }
    NativeEdit* Edit() override { return HasEdit(look.kind) ? this : nullptr; }
    NativeList* List() override { return HasList(look.kind) ? this : nullptr; }

    String Text() override { return text; }
    TextRange Selection() override { return selection; }
    void SetSelection(TextRange range) override { selection = range; }

    void Add(const String& item) override { items.push_back(item); }
    void Clear() override;
    void Choose(int index) override;
    bool IsOpen() override { return isOpen; }
    void Close(bool choose) override;
    Twips ClosedHeight() override;

    /// What a key does that the form did not use up.
    void OnKey(std::int16_t keyCode, std::int16_t shift);
    /// What a character does that the form did not use up.
    void OnCharacter(char16_t character);

    MemoryWindow& window;
    ControlLook look;
    Rect bounds;
    String text;
    Font font;
    bool visible = true;
    int focuses = 0;
    int refreshes = 0;
    String accessibleName;
    TextRange selection;
    std::vector<String> items;
    int listIndex = -1;
    bool isOpen = false;  ///< the list has dropped down

 private:
    std::size_t Number() const;
    void Replace(StringView written);
    void Pick(int index);
    void PickByLetter(char16_t letter);

    int indexAtOpening_ = -1;
    String textAtOpening_;
};

}  // namespace runtime::headless
