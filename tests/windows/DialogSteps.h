// Steps for a test's dialogs. They use the keyboard and the mouse through the system's input queue, as a user does.
#pragma once

#include <functional>
#include <vector>

#include "tests/windows/DialogDriver.h"

namespace tests {

using Steps = std::vector<DialogDriver::Step>;

/// A button of the dialog, by its caption including the '&'. Null if there is none.
HWND ButtonOf(HWND dialog, const wchar_t* caption);
/// The label in a dialog of the suite.
HWND LabelOf(HWND dialog);

/// Presses the keys in order and releases them in reverse order: {VK_MENU, VK_F4} is Alt+F4.
DialogDriver::Step Keys(std::vector<WORD> keys);
/// Types a key through the dialog's message queue. It works even if another program has the keyboard.
DialogDriver::Step Type(WORD key);
/// Posts a key press as the automatic repetition of a held key.
DialogDriver::Step Repeated(WORD key);
/// Sends a character to the focused window without a key, as an input method does.
DialogDriver::Step Character(wchar_t character);
/// Clicks the button with the identifier `id` by a message, without the mouse.
DialogDriver::Step Press(int id);
/// Clicks a button of the dialog with the mouse.
DialogDriver::Step ClickOn(const wchar_t* caption);
/// Waits until the dialog is active and the button has the focus.
DialogDriver::Step FocusIsOn(const wchar_t* caption);
/// Runs an action on the dialog once.
DialogDriver::Step Do(std::function<void(HWND dialog)> action);

}  // namespace tests
