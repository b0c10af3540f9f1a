// What the host's command line says to this component: the folder of the suite's INI file, and a file to start with.
#pragma once

#include "runtime/Text.h"

namespace host {

struct HostCommandLine {
    runtime::String systemFolder;  ///< "sys" beside the component unless an accepted "/sys:" piece names another
    runtime::String startFile;     ///< a piece that names an existing file; else empty
};

/// Reads the process's command line. It is split at double quotes, never at blanks, into one or two pieces, of which a
/// later one wins; with more nothing is taken. A "/sys:" folder that cannot be used is reported to the user.
HostCommandLine ReadHostCommandLine();

}  // namespace host
