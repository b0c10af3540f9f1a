// The system's rules of paths, for the file system in memory: drives, shares, "." and "..", wildcards.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace runtime::headless {

/// `path` from its drive or share on, with backslashes only, no "." or ".." and no final backslash but a root's.
/// What lacks a drive is taken from `current`, itself a full path; so is "C:name" when `current` is on that drive.
/// None when it cannot be a path: characters that names cannot have, wildcards included.
std::optional<String> FullPath(StringView path, StringView current);

/// The root of a full path: "C:\" or "\\server\share\".
StringView RootOf(StringView fullPath);
/// The folder that holds the file or folder at `fullPath`; a root holds itself.
StringView ParentOf(StringView fullPath);

/// Whether `name` fits `pattern`, in which "*" stands for any characters, and "?" for one, or for none at the end
/// of the name. Letter case does not matter, and "name.*" fits a name without extension too.
bool MatchesWildcards(StringView name, StringView pattern);

}  // namespace runtime::headless
