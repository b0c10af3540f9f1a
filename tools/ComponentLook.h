// Looking at the component's file and at what COM makes of its registration, without creating an instance.
#pragma once

#include "runtime/FilesPort.h"
#include "tools/Diagnosis.h"

namespace tools {

ComponentFile LookAtComponent(runtime::FilesPort& files, const String& path);

/// What COM says when it is asked for the class, which `library` is registered for, by a thread in an apartment; ""
/// when it gives the class.
std::string ActivationFailure(const String& library);

}  // namespace tools
