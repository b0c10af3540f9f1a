// Implements the file system with the functions of Windows.
#pragma once

#include "runtime/FilesPort.h"

namespace runtime::win32 {

/// Paths may have up to 32766 characters. The system has a lower limit for the current folder. The functions suppress
/// the system's message box about a missing disk.
class Win32Files : public FilesPort {
 public:
    String CurrentFolder() override;
    /// If `path` names another drive, this drive becomes the current drive.
    void ChangeFolder(StringView path) override;
    /// A pattern that ends with a separator matches every ordinary file in that folder.
    String FirstMatch(StringView pattern) override;
    std::optional<FileStamp> Stamp(StringView path) override;
    /// Also returns no value for a device or a pipe, because reading it might never end.
    std::optional<std::string> Read(StringView path) override;
};

}  // namespace runtime::win32
