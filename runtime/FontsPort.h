// The system's fonts and device contexts, as far as choosing the user-interface font needs them. Each call is one call
// of the system, so that a twin's log shows what was selected, put back, released and deleted, and in which order.
#pragma once

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace runtime {

class FontsPort {
 public:
    virtual ~FontsPort() = default;

    /// The system has fonts of this face, and need not substitute another one for it.
    virtual bool IsInstalled(StringView face) = 0;
    /// Makes the font of icon titles, which the caller deletes; 0 when the system does not describe or make it.
    virtual NativeHandle MakeIconTitleFont() = 0;
    /// The system's font for its user interface. Never deleted.
    virtual NativeHandle StockGuiFont() = 0;
    /// Selects `font` into `context` and returns the font that was selected before; 0 on failure.
    virtual NativeHandle Select(NativeHandle context, NativeHandle font) = 0;
    /// The face of the font that is selected into `context`; 80 blanks, which is what the buffer is made of, when the
    /// system does not tell.
    virtual String FaceName(NativeHandle context) = 0;
    /// Gives a device context of `window` back to the system.
    virtual void ReleaseContext(NativeHandle window, NativeHandle context) = 0;
    virtual void Delete(NativeHandle font) = 0;
};

}  // namespace runtime
