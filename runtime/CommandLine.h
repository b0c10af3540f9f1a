// Parses the command line of a process.
#pragma once

#include "runtime/Text.h"

namespace runtime {

/// Returns the arguments of `commandLine`: the text after the program's name, unchanged, without the blanks and tabs
/// between them. The name ends at the first blank or tab outside double quotes. If a quote is never closed, the name is
/// the whole text.
StringView WithoutProgramName(StringView commandLine);

}  // namespace runtime
