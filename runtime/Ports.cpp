#include "runtime/Ports.h"

#include "runtime/Error.h"
#include "runtime/ProcessState.h"

namespace runtime {

const Ports& CurrentPorts() {
    const Ports* const ports = State().ports;
    if (!ports) throw ErrorAbout(kObjectVariableNotSet, u"the system ports; call UsePorts first");
    return *ports;
}

void UsePorts(const Ports* ports) {
    State().ports = ports;
}

void DoEvents() {
    CurrentPorts().windows.DoEvents();
}

}  // namespace runtime
