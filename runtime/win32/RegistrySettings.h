// The per-user settings in the registry. Each setting is a text value in the key "HKEY_CURRENT_USER\Software\VB and VBA
// Program Settings\<application>\<section>". Names are not case-sensitive.
#pragma once

#include "runtime/SettingsPort.h"

namespace runtime::win32 {

class RegistrySettings : public SettingsPort {
 public:
    /// None also for a value that is not text. Names of environment variables in a value are not expanded.
    std::optional<String> Get(StringView application, StringView section, StringView key) override;
    /// Error 5 also if the application, section or key is empty or contains a NUL.
    void Save(StringView application, StringView section, StringView key, StringView value) override;
};

}  // namespace runtime::win32
