// Declares the fixture of the tests that every implementation of LocalePort must pass on a western system. Each
// implementation instantiates the tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/LocalePort.h"

namespace runtime {

/// The parameter is a function that makes a port. The function returns null if the system's code page is not 1252. The
/// tests are then skipped.
class LocalePortTest : public testing::TestWithParam<std::unique_ptr<LocalePort> (*)()> {
 protected:
    void SetUp() override {
        if (!locale_) GTEST_SKIP() << "the system's code page is not 1252";
    }

    std::unique_ptr<LocalePort> locale_ = GetParam()();
};

}  // namespace runtime
