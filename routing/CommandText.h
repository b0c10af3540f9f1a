// Makes the texts of commands for other modules.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace routing {

/// Returns "SHELL,<mode>,<command line>". The mode is in decimal without blanks. The command line is unchanged and
/// unquoted.
runtime::String ShellCommand(std::int16_t mode, runtime::StringView commandLine);

}  // namespace routing
