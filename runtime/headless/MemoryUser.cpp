// The user's keys in memory: they come to the form first, and what it does not use up to the control with the focus.
#include <algorithm>

#include "runtime/headless/MemoryWindows.h"

namespace runtime::headless {
namespace {

/// Keys whose number is that of the character which they become.
bool BecomesCharacter(std::int16_t keyCode, std::int16_t shift) {
    if ((shift & kAlt) != 0) return false;
    return keyCode == kKeyEnter || keyCode == kKeySpace || keyCode == kKeyEscape || keyCode == kKeyTab;
}

}  // namespace

bool MemoryWindow::Lives(const MemoryWindows& system, const MemoryWindow* window) {
    const auto& windows = system.Windows();
    return std::find(windows.begin(), windows.end(), window) != windows.end();
}

// A handler may destroy this window; then nothing of it is touched any more.
void MemoryWindow::Press(std::int16_t keyCode, std::int16_t shift) {
    const MemoryWindows& system = system_;
    const bool usedUp = events_.KeyDown(keyCode, shift);
    if (!usedUp) {
        if (focused) focused->OnKey(keyCode, shift);
        if (BecomesCharacter(keyCode, shift)) TypeOne(static_cast<char16_t>(keyCode));
    }
    if (Lives(system, this)) events_.KeyUp(keyCode, shift);
}

void MemoryWindow::Type(StringView text) {
    const MemoryWindows& system = system_;
    for (const char16_t character : text) {
        if (!Lives(system, this)) return;
        TypeOne(character);
    }
}

void MemoryWindow::TypeOne(char16_t character) {
    const bool usedUp = events_.KeyPress(character);
    if (!usedUp && focused) focused->OnCharacter(character);
}

}  // namespace runtime::headless
