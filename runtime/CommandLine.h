// Parses the command line of a process.
#pragma once

#include "runtime/Text.h"

namespace runtime {

/// Returns `commandLine` without the program's name and without the blanks and tabs after the name. The name ends at
/// the first blank or tab outside double quotes. If a quote is never closed, the name is the whole text.
StringView WithoutProgramName(StringView commandLine);

/// Returns the text after the first argument of `arguments`, without the blanks and tabs before that text. The argument
/// ends like a program's name, but a double quote after an odd number of backslashes neither opens nor closes a quoted
/// part.
StringView WithoutFirstArgument(StringView arguments);

}  // namespace runtime
