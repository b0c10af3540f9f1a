// What stands behind the COM edge, supplied by whoever links it: the component itself in the DLL (Component.cpp), a
// double in the tests.
#pragma once

#include <cstddef>
#include <memory>

#include "host/ServiceObject.h"

namespace host::com {

/// A new service object. Throws what its creation throws.
std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer);
/// How many windows of the component live. Called from any thread.
std::size_t LiveWindows() noexcept;
/// The home apartment or its thread has ended while instances live: no form is loaded any more. Called from any thread,
/// and under a lock: no waiting for other threads.
void GiveUpForms() noexcept;

}  // namespace host::com
