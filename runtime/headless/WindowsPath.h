// Implements the path rules of Windows for the file system in memory: drives, shares, "." and "..", wildcards.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace runtime::headless {

/// Returns the full path of `path`. The result starts with a drive or a share, has backslashes as separators, and
/// contains no "." or "..". It ends with a backslash only if it is a root. `current` is the current folder as a full
/// path. A path without a drive or share is relative to `current`. "C:name" is also relative to `current` if `current`
/// is on drive C:. Returns no value if `path` is empty or contains a wildcard or another character that names cannot
/// contain.
std::optional<String> FullPath(StringView path, StringView current);

/// Returns the root of a full path: "C:\" or "\\server\share\".
StringView RootOf(StringView fullPath);
/// Returns the folder that contains the file or folder `fullPath`. The parent of a root is the root.
StringView ParentOf(StringView fullPath);

/// True if `name` matches `pattern`. "*" matches any number of characters. "?" matches one character. At the end of the
/// name, "?" also matches no character. "name.*" also matches a name without extension. Ignores letter case.
bool MatchesWildcards(StringView name, StringView pattern);

}  // namespace runtime::headless
