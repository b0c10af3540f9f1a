// Makes instances. The one that clients get keeps the DLL while they hold it; the one that the home apartment keeps
// for calls from other apartments does not.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

enum class FactoryKind { kClient, kHome };

ComPtr<IClassFactory> MakeClassFactory(FactoryKind kind);

}  // namespace host::com
