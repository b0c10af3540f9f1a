// The system's viewer of compiled help files.
#pragma once

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace runtime {

/// Where there is no viewer, its operations do nothing. What is wrong with a file is the viewer's to report.
class HelpPort {
 public:
    virtual ~HelpPort() = default;

    /// Opens the table of contents of `file` in a window that `owner` owns; 0 for none.
    virtual void OpenContents(NativeHandle owner, StringView file) = 0;
    /// Closes every help window that this process has opened.
    virtual void CloseAll(NativeHandle owner) = 0;
};

}  // namespace runtime
