// Makes the two enumerators that connection points need. Each enumerator copies the list at its creation and holds
// references to the items.
#pragma once

#include <vector>

#include "host/com/Sinks.h"

namespace host::com {

ComPtr<IEnumConnectionPoints> EnumerateConnectionPoints(std::vector<ComPtr<IConnectionPoint>> points);
ComPtr<IEnumConnections> EnumerateConnections(std::vector<Connection> connections);

}  // namespace host::com
