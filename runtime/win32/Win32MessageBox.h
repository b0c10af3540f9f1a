// The system message box of Windows.
#pragma once

#include "runtime/MessageBoxPort.h"

namespace runtime::win32 {

class Win32MessageBox : public MessageBoxPort {
 public:
    /// The thread's active window owns the box. Error 7 when the system cannot show it.
    std::int32_t Show(StringView prompt, std::int32_t flags, StringView title) override;
};

}  // namespace runtime::win32
