// Composes the component for Windows: chooses the back ends of the forms runtime and the suite's kernel library.
#pragma once

#include <memory>

#include "host/Composition.h"
#include "host/ServiceObject.h"

namespace host {

/// The environment variable that suppresses dialogs with the value "1" (see UnattendedDialogs). It is read when the
/// process is composed.
inline constexpr const wchar_t* kUnattendedVariable = L"K4TBACKPROCESS_UNATTENDED";

/// The component of this process. The first call composes it; it exists until the process ends. `module` is the
/// component's own module handle (HINSTANCE).
Composition& EnsureComposed(void* module);

/// A new service object. The first call composes the component.
std::unique_ptr<ServiceObject> NewServiceObject(void* module, NotifyServerEvent notifyServer);

}  // namespace host
