// Per-user settings in memory. Names are not case-sensitive, as in the registry. A log contains the saved settings.
#pragma once

#include <map>
#include <tuple>
#include <vector>

#include "runtime/SettingsPort.h"

namespace runtime::headless {

class MemorySettings : public SettingsPort {
 public:
    struct Setting {
        String application;
        String section;
        String key;
        String value;
        bool operator==(const Setting&) const = default;
    };

    std::optional<String> Get(StringView application, StringView section, StringView key) override;
    void Save(StringView application, StringView section, StringView key, StringView value) override;

    /// The saved settings, in order, with the names as they were passed.
    const std::vector<Setting>& Saved() const { return saved_; }
    /// After this call, Save fails with error 5, as for a user without write access.
    void Refuse() { refuses_ = true; }

 private:
    using Name = std::tuple<String, String, String>;
    static Name FoldedName(StringView application, StringView section, StringView key);

    std::map<Name, String> values_;
    std::vector<Setting> saved_;
    bool refuses_ = false;
};

}  // namespace runtime::headless
