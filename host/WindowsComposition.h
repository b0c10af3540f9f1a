// Composes the component for Windows. Chooses the platform classes of the forms runtime and the suite's kernel library.
#pragma once

#include <memory>

#include "host/Composition.h"
#include "host/ServiceObject.h"

namespace host {

/// The environment variable that suppresses dialogs if its value is "1" (see UnattendedDialogs). The component reads
/// the variable when the process is composed.
inline constexpr const wchar_t* kUnattendedVariable = L"K4TBACKPROCESS_UNATTENDED";

/// Returns the component of this process. The first call composes the component, which exists until the process ends.
/// `module` is the HINSTANCE of the DLL or program that contains the component's code.
Composition& EnsureComposed(void* module);

/// Makes a service object. The first call composes the component.
std::unique_ptr<ServiceObject> NewServiceObject(void* module, NotifyServerEvent notifyServer);

}  // namespace host
