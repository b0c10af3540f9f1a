// The set of ports that the runtime works with, chosen once by the composition of the process, before it makes a form.
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

/// References; the composition owns the ports.
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

/// The ports in use. Error 91 before they were chosen.
const Ports& CurrentPorts();
/// Chooses the ports; null takes the choice back. The caller keeps ownership.
void UsePorts(const Ports* ports);

/// Lets pending window events run: the classic runtime's DoEvents.
void DoEvents();

}  // namespace runtime
