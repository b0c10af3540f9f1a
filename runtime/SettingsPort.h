// The classic runtime's per-user settings, stored by application, section and key.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace runtime {

class SettingsPort {
 public:
    virtual ~SettingsPort() = default;

    /// None if the setting does not exist.
    virtual std::optional<String> Get(StringView application, StringView section, StringView key) = 0;
    /// Error 5 if the setting cannot be stored.
    virtual void Save(StringView application, StringView section, StringView key, StringView value) = 0;
};

}  // namespace runtime
