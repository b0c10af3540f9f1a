// What every implementation of the process port must do, as tests that each of them instantiates.
#pragma once

#include <gtest/gtest.h>

#include "runtime/ProcessPort.h"

namespace runtime {

class ProcessPortTest : public testing::TestWithParam<std::unique_ptr<ProcessPort> (*)()> {
 protected:
    std::unique_ptr<ProcessPort> process_ = GetParam()();
};

}  // namespace runtime
