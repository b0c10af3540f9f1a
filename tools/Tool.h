// The tool's frame: finds the verb, handles help and version, and turns errors into messages and exit codes. It knows
// no verb by name and is portable.
#pragma once

#include <span>

#include "tools/Verb.h"

namespace tools {

/// Runs the verb at the front of `arguments`, which do not include the program's name. Returns the exit code.
int RunTool(std::span<const Verb> verbs, std::string_view version, const Arguments& arguments, Console& console);

}  // namespace tools
