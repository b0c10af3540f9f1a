// The system's own message box.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace runtime {

class MessageBoxPort {
 public:
    virtual ~MessageBoxPort() = default;

    /// Shows the box modally with the platform's style bits; returns the platform's code of the pressed button.
    virtual std::int32_t Show(StringView prompt, std::int32_t flags, StringView title) = 0;
};

}  // namespace runtime
