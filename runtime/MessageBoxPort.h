// The interface of the system's message box.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace runtime {

/// The help topic of a message box. An empty `file` means no help.
struct MessageHelp {
    String file;
    std::int32_t context = 0;  ///< number of the topic; 0 for the file's table of contents
    bool operator==(const MessageHelp&) const = default;
};

class MessageBoxPort {
 public:
    virtual ~MessageBoxPort() = default;

    /// Shows the box modally. `flags` are the Windows style bits. Returns the Windows code of the pressed button. F1
    /// and the Help button open `help`, and the box stays open. The box has a Help button if `flags` select it.
    virtual std::int32_t Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) = 0;
};

}  // namespace runtime
