// What every implementation of the locale port must do on a western system, as tests that each of them instantiates.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/LocalePort.h"

namespace runtime {

/// A null port stands for a system of another code page, where the tests do not apply.
class LocalePortTest : public testing::TestWithParam<std::unique_ptr<LocalePort> (*)()> {
 protected:
    void SetUp() override {
        if (!locale_) GTEST_SKIP() << "the system's code page is not 1252";
    }

    std::unique_ptr<LocalePort> locale_ = GetParam()();
};

}  // namespace runtime
