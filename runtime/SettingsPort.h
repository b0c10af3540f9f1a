// The interface of the classic runtime's per-user settings. A setting has an application, a section and a key.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace runtime {

class SettingsPort {
 public:
    virtual ~SettingsPort() = default;

    /// Returns the setting; no value if the setting does not exist.
    virtual std::optional<String> Get(StringView application, StringView section, StringView key) = 0;
    /// Stores the setting. Error 5 if the setting cannot be stored.
    virtual void Save(StringView application, StringView section, StringView key, StringView value) = 0;
};

}  // namespace runtime
