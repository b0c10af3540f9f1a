// The font and device-context functions that the choice of the user-interface font needs. Each function is one call of
// the system, so that a test double can log which objects are selected, released and deleted, and in which order.
#pragma once

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace runtime {

class FontsPort {
 public:
    virtual ~FontsPort() = default;

    /// True if the system has a font of this face; false if it would substitute another face.
    virtual bool IsInstalled(StringView face) = 0;
    /// Creates the font of icon titles. The caller deletes it. 0 on failure.
    virtual NativeHandle MakeIconTitleFont() = 0;
    /// The stock font for user interfaces. The caller must not delete it.
    virtual NativeHandle StockGuiFont() = 0;
    /// Selects `font` into `context` and returns the font that was selected before; 0 on failure.
    virtual NativeHandle Select(NativeHandle context, NativeHandle font) = 0;
    /// The face of the font that is selected into `context`. If the system call fails: 80 blanks, the buffer's initial
    /// content.
    virtual String FaceName(NativeHandle context) = 0;
    /// Releases a device context of `window`.
    virtual void ReleaseContext(NativeHandle window, NativeHandle context) = 0;
    virtual void Delete(NativeHandle font) = 0;
};

}  // namespace runtime
