// Access to the help control for tests (RecordingHelp.cpp), which replaces the system's and records its calls.
#pragma once

#include "runtime/Text.h"

namespace tests {

/// The full path of the help control for tests, for runtime::win32::HelpControl.
runtime::String RecordingHelp();

/// The calls in this process, one per line. Empty if the control is not loaded.
runtime::String RecordedHelp();

}  // namespace tests
