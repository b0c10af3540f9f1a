// What a test does with a dialog, with the keyboard and the mouse as the user does, through the system's input queue.
#pragma once

#include <functional>
#include <vector>

#include "tests/windows/DialogDriver.h"

namespace tests {

using Steps = std::vector<DialogDriver::Step>;

/// A button of the dialog by its caption with its '&'; null when there is none.
HWND ButtonOf(HWND dialog, const wchar_t* caption);
/// The label of one of the suite's dialogs.
HWND LabelOf(HWND dialog);

/// Presses and releases the keys, the last one released first: {VK_MENU, VK_F4} is Alt+F4.
DialogDriver::Step Keys(std::vector<WORD> keys);
/// Types a key into the dialog through its message queue, whichever program has the keyboard.
DialogDriver::Step Type(WORD key);
/// What the keyboard's repetition of a held key becomes.
DialogDriver::Step Repeated(WORD key);
/// A character that comes to the focused window without a key, as an input method sends it.
DialogDriver::Step Character(wchar_t character);
/// Clicks the button with the identifier `id`, without the mouse.
DialogDriver::Step Press(int id);
/// Presses the mouse button over a button of the dialog.
DialogDriver::Step ClickOn(const wchar_t* caption);
/// Waits until the button has the focus in the active dialog.
DialogDriver::Step FocusIsOn(const wchar_t* caption);
/// Does something with the dialog once.
DialogDriver::Step Do(std::function<void(HWND dialog)> action);

}  // namespace tests
