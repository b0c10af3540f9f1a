// The path rules of Windows for the file system in memory: drives, shares, "." and "..", wildcards.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace runtime::headless {

/// The full path of `path`. It starts with a drive or a share, has backslashes as separators, and contains no "." or
/// "..". It ends with a backslash only if it is a root. `current` is the current folder as a full path. A path without
/// a drive refers to `current`, and so does "C:name" if `current` is on drive C:. None if `path` is empty or contains a
/// wildcard or another character that names cannot have.
std::optional<String> FullPath(StringView path, StringView current);

/// The root of a full path: "C:\" or "\\server\share\".
StringView RootOf(StringView fullPath);
/// The folder that contains the file or folder `fullPath`. The parent of a root is the root.
StringView ParentOf(StringView fullPath);

/// True if `name` matches `pattern`. "*" matches any number of characters. "?" matches one character, or none at the
/// end of the name. "name.*" also matches a name without extension. Letter case is ignored.
bool MatchesWildcards(StringView name, StringView pattern);

}  // namespace runtime::headless
