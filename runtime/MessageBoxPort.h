// The system's own message box.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace runtime {

/// What the box's help opens; without a file it opens nothing.
struct MessageHelp {
    String file;
    std::int32_t context = 0;  ///< number of the topic; 0 for the file's table of contents
    bool operator==(const MessageHelp&) const = default;
};

class MessageBoxPort {
 public:
    virtual ~MessageBoxPort() = default;

    /// Shows the box modally with the platform's style bits; returns the platform's code of the pressed button. The
    /// Help button, which the style asks for, and F1 open `help` and leave the box open.
    virtual std::int32_t Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) = 0;
};

}  // namespace runtime
