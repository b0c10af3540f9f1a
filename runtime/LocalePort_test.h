// Tests that every implementation of LocalePort must pass on a western system. Each implementation instantiates them.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/LocalePort.h"

namespace runtime {

/// A null port means that the system has another code page, for which the tests do not apply.
class LocalePortTest : public testing::TestWithParam<std::unique_ptr<LocalePort> (*)()> {
 protected:
    void SetUp() override {
        if (!locale_) GTEST_SKIP() << "the system's code page is not 1252";
    }

    std::unique_ptr<LocalePort> locale_ = GetParam()();
};

}  // namespace runtime
