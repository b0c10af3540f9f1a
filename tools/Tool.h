// The tool's outer shell: finds the verb, answers help and version, turns errors into messages and exit codes. It
// knows no verb by name and nothing of the platform.
#pragma once

#include <span>

#include "tools/Verb.h"

namespace tools {

/// Runs the verb that `arguments` begins with (the program's own name is not among them) and gives the exit code.
int RunTool(std::span<const Verb> verbs, std::string_view version, const Arguments& arguments, Console& console);

}  // namespace tools
