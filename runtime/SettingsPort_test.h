// Declares the fixture of the tests that every implementation of SettingsPort must pass. Each implementation
// instantiates the tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/SettingsPort.h"

namespace runtime {

/// The application name of the tests' settings. The factory of a permanent store deletes these settings before and
/// after each test.
inline constexpr StringView kTestApplication = u"K4T settings tests";

class SettingsPortTest : public testing::TestWithParam<std::shared_ptr<SettingsPort> (*)()> {
 protected:
    void Save(StringView key, StringView value) { settings_->Save(kTestApplication, u"Section", key, value); }
    std::optional<String> Get(StringView key) { return settings_->Get(kTestApplication, u"Section", key); }

    std::shared_ptr<SettingsPort> settings_ = GetParam()();
};

}  // namespace runtime
