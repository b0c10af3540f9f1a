// Parses the command line of a process.
#pragma once

#include "runtime/Text.h"

namespace runtime {

/// `commandLine` without the program's name and without the blanks and tabs after the name. The name ends at the first
/// blank or tab outside double quotes. If a quote is never closed, the name is the whole text.
StringView WithoutProgramName(StringView commandLine);

/// What follows the first argument of `arguments`, without the blanks and tabs before it, otherwise as it was given.
/// The argument ends like a program's name, but a double quote behind a backslash belongs to it.
StringView WithoutFirstArgument(StringView arguments);

}  // namespace runtime
