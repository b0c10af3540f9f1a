// Finds the language file in a folder that the user names.
#pragma once

#include "runtime/FilesPort.h"

namespace tools {

/// Returns the file's path. Throws std::runtime_error with a message for the user if the name is empty, the file is
/// missing, or the file is too large to be read.
runtime::String LanguageFileIn(runtime::FilesPort& files, runtime::StringView folder);

}  // namespace tools
