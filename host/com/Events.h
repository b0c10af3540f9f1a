// Raises the instance's event at its sinks.
#pragma once

#include "host/com/Sinks.h"
#include "runtime/Text.h"

namespace host::com {

/// Calls each sink once, in order. A sink receives the changes that earlier sinks made in the strings, and the caller
/// receives the final strings.
/// - Sinks that are connected during the event, or disconnected before their call, are not called.
/// - A sink whose apartment or process has ended is disconnected.
/// - If sinks fail, the first error is thrown after all sinks were called.
void RaiseNotifyServer(Sinks& sinks, runtime::String& Aname, runtime::String& sCommand);

}  // namespace host::com
