// Declares the functions that the COM layer calls in the component. Component.cpp implements them for the DLL. The
// tests link other implementations.
#pragma once

#include <cstddef>
#include <memory>

#include "host/ServiceObject.h"

namespace host::com {

/// Makes a service object. Throws an error if the creation fails.
std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer);
/// Returns the number of the component's windows. Any thread may call.
std::size_t LiveWindows() noexcept;
/// Abandons all forms and runs no handler. The COM layer calls this function when the home apartment or its thread has
/// ended and instances or windows may still exist. Any thread may call. The caller holds a lock, so the function must
/// not wait for other threads.
void GiveUpForms() noexcept;

}  // namespace host::com
