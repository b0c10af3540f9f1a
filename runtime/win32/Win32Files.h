// The file system of Windows.
#pragma once

#include "runtime/FilesPort.h"

namespace runtime::win32 {

/// Paths may be of any length, but the current folder's only as long as the system lets it be. No operation makes the
/// system ask for a missing disk.
class Win32Files : public FilesPort {
 public:
    String CurrentFolder() override;
    /// Another drive in `path` becomes the current drive with it.
    void ChangeFolder(StringView path) override;
    /// A pattern that ends with a folder's separator stands for every file in it.
    String FirstMatch(StringView pattern) override;
    std::optional<FileStamp> Stamp(StringView path) override;
    /// None also for what is no file on a disk: a device or a pipe could let the reader wait for ever.
    std::optional<std::string> Read(StringView path) override;
};

}  // namespace runtime::win32
