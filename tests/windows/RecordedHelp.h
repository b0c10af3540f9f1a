// The recording help control (RecordingHelp.cpp), which takes the place of the system's in tests, and what it recorded.
#pragma once

#include "runtime/Text.h"

namespace tests {

/// The full path of its library, for runtime::win32::HelpControl.
runtime::String RecordingHelp();

/// Its calls in this process, a line each; empty while it is not loaded.
runtime::String RecordedHelp();

}  // namespace tests
