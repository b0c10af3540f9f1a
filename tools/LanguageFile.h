// The language file that a user names by its folder.
#pragma once

#include "runtime/FilesPort.h"

namespace tools {

/// Its path. std::runtime_error, in words for the user, when the folder has no name or no such file, or one that is too
/// large to be read.
runtime::String LanguageFileIn(runtime::FilesPort& files, runtime::StringView folder);

}  // namespace tools
