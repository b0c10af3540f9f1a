// Describes what a screen reader receives for the windows of a dialog. Each element is one line.
#pragma once

#include <string>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

/// Describes the dialog and its visible controls, in the order of the windows. A line has "role [name] states", then
/// "value [...]" and "description [...]" if they exist. The role is "dialog", "static text" or "text". For any
/// other role, the line begins with the name of the window class. The role's number follows, unless the role is
/// "client", which most of Wine's own controls have. States are "focused", "unavailable" and "invisible".
std::vector<std::string> AccessibleElementsOf(HWND dialog);

/// Describes one window in the same form.
std::string AccessibleElement(HWND window);

}  // namespace tests
