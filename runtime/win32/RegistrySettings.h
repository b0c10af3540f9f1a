// The runtime's per-user settings in the registry, one text value a key, below the current user's
// "Software\VB and VBA Program Settings\<application>\<section>". Letter case of names does not matter there.
#pragma once

#include "runtime/SettingsPort.h"

namespace runtime::win32 {

class RegistrySettings : public SettingsPort {
 public:
    /// A value that is not text counts as absent; one that names environment variables is given as it stands.
    std::optional<String> Get(StringView application, StringView section, StringView key) override;
    /// Error 5 also for an empty application, section or key, and for a NUL in one.
    void Save(StringView application, StringView section, StringView key, StringView value) override;
};

}  // namespace runtime::win32
