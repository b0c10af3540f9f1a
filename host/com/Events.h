// Raises the instance's event at its sinks.
#pragma once

#include "host/com/Sinks.h"
#include "runtime/Text.h"

namespace host::com {

/// Tells each sink that is connected now, and still is when its turn comes, once and in order. What one changes in
/// the strings the next one sees, and the caller gets back. A sink whose apartment or process has ended is
/// disconnected. Throws the first failure, after all were called.
void RaiseNotifyServer(Sinks& sinks, runtime::String& Aname, runtime::String& sCommand);

}  // namespace host::com
