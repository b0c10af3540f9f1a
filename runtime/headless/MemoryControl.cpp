#include "runtime/headless/MemoryControl.h"

#include <algorithm>

#include "runtime/Ports.h"
#include "runtime/headless/FixedMeasure.h"
#include "runtime/headless/MemoryWindows.h"

namespace runtime::headless {
namespace {

constexpr char16_t kBackspace = 8;
constexpr Twips kAroundLine = 120;  // frame and padding of a closed control

}  // namespace

void MemoryControl::SetText(const String& newText) {
    text = newText;
    selection = {};
    listIndex = -1;
}

void MemoryControl::SetFocus() {
    ++focuses;
    window.focused = this;
}

bool MemoryControl::HasFocus() const {
    return window.visible && window.focused == this;
}

void MemoryControl::Clear() {
    items.clear();
    Choose(-1);
}

void MemoryControl::Choose(int index) {
    listIndex = index;
    if (look.kind != ControlKind::kCombo) return;
    text = index < 0 ? String() : items.at(static_cast<std::size_t>(index));
    selection = {0, text.size()};
}

void MemoryControl::Close(bool choose) {
    if (!std::exchange(isOpen, false) || choose) return;
    if (listIndex == indexAtOpening_ && text == textAtOpening_) return;
    Choose(indexAtOpening_);
    if (text == textAtOpening_) {
        window.Events().Chosen(Number(), listIndex);
        return;
    }
    text = textAtOpening_;
    selection = {0, text.size()};
    window.Events().Edited(Number());
}

Twips MemoryControl::ClosedHeight() {
    return static_cast<Twips>(FixedMeasure(font).LineHeight()) + kAroundLine;
}

std::size_t MemoryControl::Number() const {
    const auto found = std::find_if(window.controls.begin(), window.controls.end(),
                                    [this](const auto& control) { return control.get() == this; });
    return static_cast<std::size_t>(found - window.controls.begin());
}

void MemoryControl::Replace(StringView written) {
    text.replace(selection.start, selection.length, written);
    selection = {selection.start + written.size(), 0};
    listIndex = -1;
    window.Events().Edited(Number());
}

void MemoryControl::Pick(int index) {
    const int last = static_cast<int>(items.size()) - 1;
    const int picked = std::clamp(index, std::min(0, last), last);
    if (picked == listIndex) return;
    Choose(picked);
    window.Events().Chosen(Number(), picked);
}

void MemoryControl::PickByLetter(char16_t letter) {
    LocalePort& locale = CurrentPorts().locale;
    const auto lower = [&locale](StringView one) { return locale.LowerCase(one); };
    const int count = static_cast<int>(items.size());
    for (int step = 1; step <= count; ++step) {
        const int index = (listIndex + step) % count;
        const String& item = items[static_cast<std::size_t>(index)];
        if (item.empty() || lower(StringView(item).substr(0, 1)) != lower(StringView(&letter, 1))) continue;
        Pick(index);
        return;
    }
}

void MemoryControl::OnKey(std::int16_t keyCode, std::int16_t shift) {
    if (!HasList(look.kind)) return;
    const bool opensWithAlt = (shift & kAlt) != 0 && (keyCode == kKeyUp || keyCode == kKeyDown);
    if (DropsDown(look.kind) && (opensWithAlt || keyCode == kKeyF4)) {
        if (isOpen) {
            Close(true);
        } else {
            isOpen = true;
            indexAtOpening_ = listIndex;
            textAtOpening_ = text;
        }
        return;
    }
    if (keyCode == kKeyUp) Pick(listIndex - 1);
    if (keyCode == kKeyDown) Pick(listIndex + 1);
    // In an editable combo, Home and End move the caret.
    if (HasEdit(look.kind)) return;
    if (keyCode == kKeyHome) Pick(0);
    if (keyCode == kKeyEnd) Pick(static_cast<int>(items.size()) - 1);
}

void MemoryControl::OnCharacter(char16_t character) {
    const bool isPrintable = character >= u' ';
    if (!HasEdit(look.kind)) {
        if (HasList(look.kind) && isPrintable) PickByLetter(character);
        return;
    }
    if (isPrintable) {
        Replace(StringView(&character, 1));
    } else if (character == kKeyEnter && look.kind == ControlKind::kTextBlock) {
        Replace(u"\r\n");
    } else if (character == kBackspace && (selection.length > 0 || selection.start > 0)) {
        if (selection.length == 0) selection = {selection.start - 1, 1};
        Replace(u"");
    }
}

}  // namespace runtime::headless
