// Declares the font and device-context functions for choosing the user-interface font. Each selection, release and
// deletion is a separate call. Therefore a test double can log the order of the calls.
#pragma once

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace runtime {

class FontsPort {
 public:
    virtual ~FontsPort() = default;

    /// True if the system has a font of this face. False if the system would substitute another face.
    virtual bool IsInstalled(StringView face) = 0;
    /// Creates the font of icon titles. The caller must delete the font. Returns 0 on failure.
    virtual NativeHandle MakeIconTitleFont() = 0;
    /// Returns the stock font for user interfaces. The caller must not delete the font.
    virtual NativeHandle StockGuiFont() = 0;
    /// Selects `font` into `context` and returns the previously selected font; 0 on failure.
    virtual NativeHandle Select(NativeHandle context, NativeHandle font) = 0;
    /// Returns the face of the font that is selected into `context`. If the system call fails, returns 80 blanks.
    virtual String FaceName(NativeHandle context) = 0;
    /// Releases a device context of `window`.
    virtual void ReleaseContext(NativeHandle window, NativeHandle context) = 0;
    virtual void Delete(NativeHandle font) = 0;
};

}  // namespace runtime
