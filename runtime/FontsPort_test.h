// Declares the fixture of the tests that every implementation of FontsPort must pass. Each implementation instantiates
// the tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/FontsPort.h"

namespace runtime {

/// An implementation with a device context for the tests. A test may release the context. Otherwise the system releases
/// it at the end of the process.
struct TestedFonts {
    virtual ~TestedFonts() = default;
    virtual FontsPort& Port() = 0;
    virtual NativeHandle Context() = 0;
    /// Returns the name of an installed face.
    virtual String KnownFace() = 0;
};

class FontsPortTest : public testing::TestWithParam<std::unique_ptr<TestedFonts> (*)()> {
 protected:
    std::unique_ptr<TestedFonts> tested_ = GetParam()();
    FontsPort& fonts_ = tested_->Port();
    NativeHandle context_ = tested_->Context();
};

}  // namespace runtime
