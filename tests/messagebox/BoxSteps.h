// What a test does with a box of the suite, with the keyboard and the mouse as the user does, through the system's
// input queue.
#pragma once

#include <functional>
#include <vector>

#include "tests/messagebox/BoxDriver.h"

namespace tests {

using Steps = std::vector<BoxDriver::Step>;

/// A button of the suite's box by its caption with its '&'; null when there is none.
HWND ButtonOf(HWND box, const wchar_t* caption);
HWND LabelOf(HWND box);

/// Presses and releases the keys, the last one released first: {VK_MENU, VK_F4} is Alt+F4.
BoxDriver::Step Keys(std::vector<WORD> keys);
/// What the keyboard's repetition of a held key becomes.
BoxDriver::Step Repeated(WORD key);
/// A character that comes to the focused window without a key, as an input method sends it.
BoxDriver::Step Character(wchar_t character);
/// Presses the mouse button over a button of the box.
BoxDriver::Step ClickOn(const wchar_t* caption);
/// Waits until the button has the focus in the active box.
BoxDriver::Step FocusIsOn(const wchar_t* caption);
/// Does something with the box once.
BoxDriver::Step Do(std::function<void(HWND box)> action);

}  // namespace tests
