// The interface of the file system operations that the component needs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/Text.h"

namespace runtime {

/// Identifies one version of a file's contents by its size and the time of its last write.
struct FileStamp {
    std::uint64_t modified = 0;  ///< time of the last write, in the file system's own units
    std::uint64_t size = 0;      ///< bytes
    bool operator==(const FileStamp&) const = default;
};

class FilesPort {
 public:
    virtual ~FilesPort() = default;

    /// Returns the current folder of the process, with its drive.
    virtual String CurrentFolder() = 0;
    /// Makes `path` the current folder. Raises error 76 (no such folder), 75 (no access) or 68 (no such drive).
    virtual void ChangeFolder(StringView path) = 0;
    /// Returns the name, without its folder, of the first ordinary file that matches `pattern`. An ordinary file is not
    /// a folder, not hidden and not a system file. The last part of `pattern` may contain wildcards. Returns "" if no
    /// file matches or if `pattern` cannot be a path.
    virtual String FirstMatch(StringView pattern) = 0;

    /// Returns the file's stamp; no value if the file does not exist or cannot be accessed.
    virtual std::optional<FileStamp> Stamp(StringView path) = 0;
    /// Returns all bytes of the file; no value if the file cannot be read.
    virtual std::optional<std::string> Read(StringView path) = 0;
};

}  // namespace runtime
