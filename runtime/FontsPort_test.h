// Tests that every implementation of FontsPort must pass. Each implementation instantiates them.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "runtime/FontsPort.h"

namespace runtime {

/// An implementation with a device context for the tests. A test releases the context, or the system does at the end of
/// the process.
struct TriedFonts {
    virtual ~TriedFonts() = default;
    virtual FontsPort& Port() = 0;
    virtual NativeHandle Context() = 0;
    /// A face that is installed.
    virtual String KnownFace() = 0;
};

class FontsPortTest : public testing::TestWithParam<std::unique_ptr<TriedFonts> (*)()> {
 protected:
    std::unique_ptr<TriedFonts> tried_ = GetParam()();
    FontsPort& fonts_ = tried_->Port();
    NativeHandle context_ = tried_->Context();
};

}  // namespace runtime
