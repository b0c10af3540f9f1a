// Reads two values from the host program's command line: the folder of the suite's INI file, and a file to start with.
#pragma once

#include "runtime/Text.h"

namespace host {

struct HostCommandLine {
    runtime::String systemFolder;  ///< the folder of an accepted "/sys:" piece, else "sys" in the component's folder
    runtime::String startFile;     ///< a piece that names an existing file, else empty
};

/// Reads the process's command line. Splits the line into pieces at double quotes, never at blanks. Evaluates one or
/// two pieces. If both pieces set the same value, the later piece is used. If there are more than two pieces, evaluates
/// none. Shows a message if a "/sys:" folder cannot be used.
HostCommandLine ReadHostCommandLine();

}  // namespace host
