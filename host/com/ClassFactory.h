// The class factory. A client's factory keeps the DLL in memory while the client holds it. The home apartment's own
// factory, which creates instances for other apartments, does not.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

enum class FactoryKind { kClient, kHome };

ComPtr<IClassFactory> MakeClassFactory(FactoryKind kind);

}  // namespace host::com
