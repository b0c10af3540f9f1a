// Raises the instance's event at its sinks.
#pragma once

#include "host/com/Sinks.h"
#include "runtime/Text.h"

namespace host::com {

/// Calls each sink once, in order. If a sink changes the strings, later sinks and the caller receive the changed
/// strings.
/// - A sink that connects during the event is not called.
/// - A sink that is disconnected before its call is not called.
/// - A sink whose apartment or process has ended is disconnected.
/// - If sinks fail, the remaining sinks are still called. Then the first error is thrown.
void RaiseNotifyServer(Sinks& sinks, runtime::String& Aname, runtime::String& sCommand);

}  // namespace host::com
