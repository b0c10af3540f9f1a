// Finds the verb in the command line and runs the verb. Handles help and version. Converts errors to messages and exit
// codes. This code is portable and gets the verbs as a table.
#pragma once

#include <span>

#include "tools/Verb.h"

namespace tools {

/// Runs the verb at the front of `arguments`. `arguments` does not include the program's name. Returns the exit code.
int RunTool(std::span<const Verb> verbs, std::string_view version, const Arguments& arguments, Console& console);

}  // namespace tools
