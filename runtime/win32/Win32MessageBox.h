// The system message box of Windows.
#pragma once

#include "runtime/MessageBoxPort.h"
#include "runtime/win32/HelpControl.h"

namespace runtime::win32 {

class Win32MessageBox : public MessageBoxPort {
 public:
    explicit Win32MessageBox(HelpControl& helpControl) : helpControl_(helpControl) {}

    /// The thread's active window owns the box. Error 5 for a set of buttons that there is not, error 7 when the system
    /// cannot show the box. Help is opened with the HTML Help control; nothing happens where that is missing.
    std::int32_t Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) override;

 private:
    HelpControl& helpControl_;
};

}  // namespace runtime::win32
