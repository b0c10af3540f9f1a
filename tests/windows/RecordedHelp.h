// Gives access to RecordingHelp.cpp, a help control for tests. This control replaces the system's control and records
// its calls.
#pragma once

#include "runtime/Text.h"

namespace tests {

/// Returns the full path of the help control for tests, for runtime::win32::HelpControl.
runtime::String RecordingHelp();

/// Returns the calls that the control has received in this process. Each call is one line. The text is empty if the
/// control is not loaded.
runtime::String RecordedHelp();

}  // namespace tests
