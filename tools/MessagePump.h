// The message loop of a module that has no window of its own: the component's windows live on its thread.
#pragma once

#include <chrono>

#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// Dispatches the messages that are waiting, and no others.
void PumpPending();
/// Dispatches messages for `time`.
void PumpFor(std::chrono::milliseconds time);
/// Dispatches messages until `handle` is signalled.
void PumpUntil(HANDLE handle);

}  // namespace tools
