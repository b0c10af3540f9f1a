#include "runtime/Ports.h"

#include "runtime/Error.h"

namespace runtime {
namespace {
const Ports* currentPorts = nullptr;
}

const Ports& CurrentPorts() {
    if (!currentPorts) throw ErrorAbout(kObjectVariableNotSet, u"the system ports; call UsePorts first");
    return *currentPorts;
}

void UsePorts(const Ports* ports) {
    currentPorts = ports;
}

void DoEvents() {
    CurrentPorts().windows.DoEvents();
}

}  // namespace runtime
