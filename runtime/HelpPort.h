// The interface of the system's viewer of compiled help files.
#pragma once

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace runtime {

/// If the system has no viewer, the functions do nothing. The viewer itself reports a missing or damaged file.
class HelpPort {
 public:
    virtual ~HelpPort() = default;

    /// Opens the table of contents of `file`. `owner` owns the viewer's window; 0 means no owner.
    virtual void OpenContents(NativeHandle owner, StringView file) = 0;
    /// Closes every help window that this process has opened.
    virtual void CloseAll(NativeHandle owner) = 0;
};

}  // namespace runtime
