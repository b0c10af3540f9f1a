// The runtime's per-user settings, kept by application, section and key.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace runtime {

class SettingsPort {
 public:
    virtual ~SettingsPort() = default;

    /// None when the setting is absent.
    virtual std::optional<String> Get(StringView application, StringView section, StringView key) = 0;
    /// Error 5 when the store refuses the setting.
    virtual void Save(StringView application, StringView section, StringView key, StringView value) = 0;
};

}  // namespace runtime
