// A control's window in memory. It stores the values that the form sets, and handles keys like a Windows control of its
// kind. A test simulates the user through MemoryWindow::Press and MemoryWindow::Type.
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
    bool HasFocus() const override;
    void Refresh() override { ++refreshes; }
    void SetAccessibleName(const String& name) override { accessibleName = name; }
    NativeEdit* Edit() override { return HasEdit(look.kind) ? this : nullptr; }
    NativeList* List() override { return HasList(look.kind) ? this : nullptr; }

    String Text() override { return text; }
    TextRange Selection() override { return selection; }
    void SetSelection(TextRange range) override { selection = range; }
    void Write(const String& written) override { Replace(written); }

    void Add(const String& item) override { items.push_back(item); }
    void Clear() override;
    void Choose(int index) override;
    bool IsOpen() override { return isOpen; }
    void Close(bool choose) override;
    Twips ClosedHeight() override;

    /// Handles a key that the form did not consume.
    void OnKey(std::int16_t keyCode, std::int16_t shift);
    /// Handles a character that the form did not consume.
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
    bool isOpen = false;  ///< true if the drop-down list is open

 private:
    std::size_t Number() const;
    void Replace(StringView written);
    void Pick(int index);
    void PickByLetter(char16_t letter);

    int indexAtOpening_ = -1;
    String textAtOpening_;
};

}  // namespace runtime::headless
