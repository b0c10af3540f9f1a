// The values on the host program's command line: the folder of the suite's INI file, and a file to start with.
#pragma once

#include "runtime/Text.h"

namespace host {

struct HostCommandLine {
    runtime::String systemFolder;  ///< the folder of an accepted "/sys:" piece, else "sys" beside the component
    runtime::String startFile;     ///< a piece that names an existing file, else empty
};

/// Reads the process's command line. It is split into pieces at double quotes, never at blanks. One or two pieces are
/// evaluated, and the later one takes precedence. If there are more, none is evaluated. A "/sys:" folder that cannot be
/// used is reported to the user.
HostCommandLine ReadHostCommandLine();

}  // namespace host
