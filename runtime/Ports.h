// The ports through which the runtime uses the system. The process chooses them once, before it creates a form.
#pragma once

#include "runtime/FilesPort.h"
#include "runtime/FontsPort.h"
#include "runtime/HelpPort.h"
#include "runtime/LocalePort.h"
#include "runtime/MessageBoxPort.h"
#include "runtime/ProcessPort.h"
#include "runtime/SettingsPort.h"
#include "runtime/WindowsPort.h"

namespace runtime {

/// References to the ports. The code that created the ports owns them.
struct Ports {
    WindowsPort& windows;
    SettingsPort& settings;
    FilesPort& files;
    ProcessPort& process;
    LocalePort& locale;
    FontsPort& fonts;
    MessageBoxPort& messageBox;
    HelpPort& help;
};

/// Returns the ports in use. Error 91 if no ports are chosen.
const Ports& CurrentPorts();
/// Sets the ports in use. Null means that no ports are chosen. The caller keeps ownership.
void UsePorts(const Ports* ports);

/// Processes pending window events, like DoEvents of the classic runtime.
void DoEvents();

}  // namespace runtime
