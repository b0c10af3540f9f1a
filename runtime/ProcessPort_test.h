// Declares the fixture of the tests that every implementation of ProcessPort must pass. Each implementation
// instantiates the tests.
#pragma once

#include <gtest/gtest.h>

#include "runtime/ProcessPort.h"

namespace runtime {

class ProcessPortTest : public testing::TestWithParam<std::unique_ptr<ProcessPort> (*)()> {
 protected:
    std::unique_ptr<ProcessPort> process_ = GetParam()();
};

}  // namespace runtime
