// What a screen reader is given for the windows of a dialog, one line for each element.
#pragma once

#include <string>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

/// Of the dialog and its visible controls, in the order of the windows: "role [name] states", then "value [...]" and
/// "description [...]" where there is one. Wine has no role for most of its own controls: there the line begins with
/// the name of the window class. States are "focused", "unavailable" and "invisible".
std::vector<std::string> AccessibleElementsOf(HWND dialog);

/// The same of one window.
std::string AccessibleElement(HWND window);

}  // namespace tests
