// A process's whole command line, as the system keeps it, taken apart.
#pragma once

#include "runtime/Text.h"

namespace runtime {

/// What follows the program's own name, without the blanks and tabs before it, otherwise as it was given. The name
/// ends at the first blank or tab outside double quotes, or with the text when a quote never closes.
StringView WithoutProgramName(StringView commandLine);

}  // namespace runtime
