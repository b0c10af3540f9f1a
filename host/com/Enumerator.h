// The two enumerators that connection points need. Each walks a copy made when it was asked for, and holds
// references to what it walks.
#pragma once

#include <vector>

#include "host/com/Sinks.h"

namespace host::com {

ComPtr<IEnumConnectionPoints> EnumerateConnectionPoints(std::vector<ComPtr<IConnectionPoint>> points);
ComPtr<IEnumConnections> EnumerateConnections(std::vector<Connection> connections);

}  // namespace host::com
