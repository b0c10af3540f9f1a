// The texts of commands that this component makes for other modules.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace routing {

/// "SHELL,<mode>,<command line>": the mode in decimal without blanks, the command line unchanged and unquoted.
runtime::String ShellCommand(std::int16_t mode, runtime::StringView commandLine);

}  // namespace routing
