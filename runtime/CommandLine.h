// Parses the command line of a process.
#pragma once

#include "runtime/Text.h"

namespace runtime {

/// `commandLine` without the program's name and without the blanks and tabs after the name. The name ends at the first
/// blank or tab outside double quotes. If a quote is never closed, the name is the whole text.
StringView WithoutProgramName(StringView commandLine);

}  // namespace runtime
