// Tests that every implementation of FontsPort must pass. Each implementation instantiates them.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/FontsPort.h"

namespace runtime {

/// An implementation with a device context for the tests. A test releases the context, or the system does at the end of
/// the process.
struct TestedFonts {
    virtual ~TestedFonts() = default;
    virtual FontsPort& Port() = 0;
    virtual NativeHandle Context() = 0;
    /// A face that is installed.
    virtual String KnownFace() = 0;
};

class FontsPortTest : public testing::TestWithParam<std::unique_ptr<TestedFonts> (*)()> {
 protected:
    std::unique_ptr<TestedFonts> tested_ = GetParam()();
    FontsPort& fonts_ = tested_->Port();
    NativeHandle context_ = tested_->Context();
};

}  // namespace runtime
