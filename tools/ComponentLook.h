// Inspects the component's file, and asks COM for the component's class without creating an instance.
#pragma once

#include "runtime/FilesPort.h"
#include "tools/Diagnosis.h"

namespace tools {

ComponentFile LookAtComponent(runtime::FilesPort& files, const String& path);

/// Asks COM for the class's factory. Returns the failure, or "" on success. `library` is the file in the class's
/// registration. If `library` is not a full path, the function returns a failure and does not ask COM. The thread must
/// be in an apartment.
std::string ActivationFailure(const String& library);

}  // namespace tools
