// The message loop of a module that has no window of its own. The component's windows belong to the thread that runs
// the loop.
#pragma once

#include <chrono>

#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// Dispatches the messages that are waiting and returns.
void PumpPending();
/// Dispatches messages for `time`.
void PumpFor(std::chrono::milliseconds time);
/// Dispatches messages until `handle` is signalled.
void PumpUntil(HANDLE handle);

}  // namespace tools
