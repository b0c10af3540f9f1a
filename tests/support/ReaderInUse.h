// Replaces the current reader until the end of the block.
#pragma once

#include "kernel_api/Reader.h"
#include "kernel_api/Suite.h"

namespace tests {

class ReaderInUse {
 public:
    explicit ReaderInUse(kernel_api::Reader& reader) : former_(kernel_api::CurrentReader()) {
        kernel_api::CurrentSuite().reader = &reader;
    }
    ~ReaderInUse() { kernel_api::CurrentSuite().reader = &former_; }
    ReaderInUse(const ReaderInUse&) = delete;
    ReaderInUse& operator=(const ReaderInUse&) = delete;

 private:
    kernel_api::Reader& former_;
};

}  // namespace tests
