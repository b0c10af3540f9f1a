// Makes class factories. A client's factory keeps the DLL in memory until the client releases the factory. The home
// apartment's own factory creates instances for other apartments. It does not keep the DLL in memory.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

enum class FactoryKind { kClient, kHome };

ComPtr<IClassFactory> MakeClassFactory(FactoryKind kind);

}  // namespace host::com
