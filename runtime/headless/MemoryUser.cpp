// Simulates actions of the user and of other programs on a window in memory. A key is passed to the form first. If the
// form does not consume the key, the control with the focus gets the key.
#include <algorithm>
#include <utility>

#include "runtime/headless/MemoryWindows.h"

namespace runtime::headless {
namespace {

/// True for Enter, Space, Escape and Tab without Alt or Ctrl. The code of such a key equals the character that it
/// produces.
bool BecomesCharacter(std::int16_t keyCode, std::int16_t shift) {
    if ((shift & (kAlt | kCtrl)) != 0) return false;
    return keyCode == kKeyEnter || keyCode == kKeySpace || keyCode == kKeyEscape || keyCode == kKeyTab;
}

}  // namespace

bool MemoryWindow::Exists(const MemoryWindows& system, const MemoryWindow* window) {
    const auto& windows = system.Windows();
    return std::find(windows.begin(), windows.end(), window) != windows.end();
}

// A handler may destroy this window. Its members must not be used after that.
void MemoryWindow::Press(std::int16_t keyCode, std::int16_t shift) {
    const MemoryWindows& system = system_;
    const bool usedUp = events_.KeyDown(keyCode, shift);
    if (!usedUp && keyCode == kKeyF4 && shift == kAlt) {
        events_.Closing(UnloadReason::kUser);
    } else if (!usedUp) {
        if (focused) focused->OnKey(keyCode, shift);
        if (BecomesCharacter(keyCode, shift)) TypeOne(static_cast<char16_t>(keyCode));
    }
    if (Exists(system, this)) events_.KeyUp(keyCode, shift);
}

void MemoryWindow::ShowExternally(WindowState newState, bool activates) {
    const MemoryWindows& system = system_;
    const bool appears = !std::exchange(visible, true);
    if (std::exchange(state, newState) != newState) events_.BoundsChanged(outer, newState);
    if (appears && Exists(system, this)) events_.VisibilityChanged(true);
    if (!appears || !activates || newState == WindowState::kMinimised || !Exists(system, this)) return;
    events_.Activated();
}

void MemoryWindow::HideExternally() {
    if (std::exchange(visible, false)) events_.VisibilityChanged(false);
}

void MemoryWindow::Type(StringView text) {
    const MemoryWindows& system = system_;
    for (const char16_t character : text) {
        if (!Exists(system, this)) return;
        TypeOne(character);
    }
}

void MemoryWindow::TypeOne(char16_t character) {
    const bool usedUp = events_.KeyPress(character);
    if (!usedUp && focused) focused->OnCharacter(character);
}

}  // namespace runtime::headless
