// The file system as the component uses it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/Text.h"

namespace runtime {

/// Tells whether a file is still the one that was read: differs when the file changed.
struct FileStamp {
    std::uint64_t modified = 0;  ///< last write, in the file system's own units
    std::uint64_t size = 0;      ///< bytes
    bool operator==(const FileStamp&) const = default;
};

class FilesPort {
 public:
    virtual ~FilesPort() = default;

    /// The current folder of the process, and of its current drive.
    virtual String CurrentFolder() = 0;
    /// Makes `path` the current folder. Error 76 (no such folder), 75 (no access) or 68 (no such drive).
    virtual void ChangeFolder(StringView path) = 0;
    /// The name, without its folder, of the first ordinary file that matches `pattern` (wildcards allowed in the
    /// last part); "" when there is none or the pattern cannot be a path.
    virtual String FirstMatch(StringView pattern) = 0;

    /// None when there is no such file.
    virtual std::optional<FileStamp> Stamp(StringView path) = 0;
    /// The whole file's bytes; none when it cannot be read.
    virtual std::optional<std::string> Read(StringView path) = 0;
};

}  // namespace runtime
