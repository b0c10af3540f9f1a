// Steps for dialogs in tests. Keys and ClickOn put input into the system's queue, as a user's devices do. Type,
// Repeated, Character and Press post messages.
#pragma once

#include <functional>
#include <vector>

#include "tests/windows/DialogDriver.h"

namespace tests {

using Steps = std::vector<DialogDriver::Step>;

/// Returns the dialog's button with this caption, or null. The caption includes the '&'.
HWND ButtonOf(HWND dialog, const wchar_t* caption);
/// Returns the label of a dialog of the suite.
HWND LabelOf(HWND dialog);

/// Presses the keys in order and releases the keys in reverse order. {VK_MENU, VK_F4} is Alt+F4.
DialogDriver::Step Keys(std::vector<WORD> keys);
/// Types a key through the dialog's message queue. This works even if another program has the keyboard focus.
DialogDriver::Step Type(WORD key);
/// Posts a key press that repeats a held key.
DialogDriver::Step Repeated(WORD key);
/// Sends a character without a key press to the focused window, as an input method does.
DialogDriver::Step Character(wchar_t character);
/// Clicks the button with the identifier `id` by a message. This does not use the mouse.
DialogDriver::Step Press(int id);
/// Clicks a button of the dialog with the mouse.
DialogDriver::Step ClickOn(const wchar_t* caption);
/// Waits until the dialog is active and the button has the focus.
DialogDriver::Step FocusIsOn(const wchar_t* caption);
/// Runs an action on the dialog once.
DialogDriver::Step Do(std::function<void(HWND dialog)> action);

}  // namespace tests
