// The functions that the COM layer calls in the component. The DLL links those of the component (Component.cpp), the
// tests link a double.
#pragma once

#include <cstddef>
#include <memory>

#include "host/ServiceObject.h"

namespace host::com {

/// Makes a service object. Throws the errors of its creation.
std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer);
/// The number of the component's windows. Any thread may call.
std::size_t LiveWindows() noexcept;
/// Called when the home apartment or its thread has ended while instances live. Afterwards no form is loaded. Any
/// thread may call. The caller holds a lock, so this function must not wait for other threads.
void GiveUpForms() noexcept;

}  // namespace host::com
