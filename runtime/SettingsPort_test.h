// What every implementation of the settings port must do, as tests that each of them instantiates.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/SettingsPort.h"

namespace runtime {

/// The application that the tests save under; whoever makes a port clears it before and after.
inline constexpr StringView kTestApplication = u"K4T settings tests";

class SettingsPortTest : public testing::TestWithParam<std::shared_ptr<SettingsPort> (*)()> {
 protected:
    void Save(StringView key, StringView value) { settings_->Save(kTestApplication, u"Section", key, value); }
    std::optional<String> Get(StringView key) { return settings_->Get(kTestApplication, u"Section", key); }

    std::shared_ptr<SettingsPort> settings_ = GetParam()();
};

}  // namespace runtime
