// Stores the per-user settings in the registry. Each setting is a text value in the key "HKEY_CURRENT_USER\Software\VB
// and VBA Program Settings\<application>\<section>". Names are not case-sensitive. Within an operation, the section
// that was read last stays open.
#pragma once

#include "runtime/SettingsPort.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class RegistrySettings : public SettingsPort {
 public:
    /// Also returns no value for a value that is not text. Names of environment variables in a value are not expanded.
    std::optional<String> Get(StringView application, StringView section, StringView key) override;
    /// Also raises error 5 if the application, section or key is empty or contains a NUL.
    void Save(StringView application, StringView section, StringView key, StringView value) override;

 private:
    /// Returns the registry key at `path`; null if the key does not exist.
    HKEY SectionToRead(const String& path);
    void Forget();

    String openedPath_;   ///< path of the section that stays open in the current operation; empty if none does
    RegistryKey opened_;  ///< null if that section does not exist
};

}  // namespace runtime::win32
