// Replaces the current reader. The destructor restores the earlier reader.
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
