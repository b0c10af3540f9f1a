// Stores the per-user settings in the registry. Each setting is a text value in the key "HKEY_CURRENT_USER\Software\VB
// and VBA Program Settings\<application>\<section>". Names are not case-sensitive. Within an operation, the section
// that was read or written last stays open.
#pragma once

#include "runtime/SettingsPort.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class RegistrySettings : public SettingsPort {
 public:
    /// Also returns no value if the registry value is not text. Does not expand environment variables in the text.
    std::optional<String> Get(StringView application, StringView section, StringView key) override;
    /// Also raises error 5 if the application, section or key is empty or contains a NUL.
    void Save(StringView application, StringView section, StringView key, StringView value) override;

 private:
    /// Opens the section at `path` and stores its key in opened_. Sets opened_ to null if the section does not exist.
    void OpenToRead(const String& path);
    /// Writes a value into the section at `path`. Creates a missing section. Returns the system's error.
    LSTATUS Write(const String& path, const String& key, const String& value);
    bool IsOpened(const String& path, REGSAM access) const { return path == openedPath_ && access == openedAccess_; }
    /// Replaces opened_. An operation keeps the new section until it ends.
    void Keep(HKEY opened, const String& path, REGSAM access);
    void Forget();

    String openedPath_;  ///< path of the section that the current operation used last; else empty
    REGSAM openedAccess_ = 0;
    RegistryKey opened_;
};

}  // namespace runtime::win32
