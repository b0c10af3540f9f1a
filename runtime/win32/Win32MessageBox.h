// Shows the system message box of Windows.
#pragma once

#include "runtime/MessageBoxPort.h"
#include "runtime/win32/HelpControl.h"

namespace runtime::win32 {

class Win32MessageBox : public MessageBoxPort {
 public:
    explicit Win32MessageBox(HelpControl& helpControl) : helpControl_(helpControl) {}

    /// The thread's active window owns the box, unless `flags` say that a service shows the box. Returns IDCANCEL if
    /// the program is asked to quit or the owner is destroyed. The HTML Help control opens the help. Without the
    /// control, no help is opened. Error 5 for an unknown set of buttons. Error 7 if the system cannot show the box.
    std::int32_t Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) override;

 private:
    HelpControl& helpControl_;
};

}  // namespace runtime::win32
