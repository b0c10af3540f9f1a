// Implements the fonts and device contexts with the functions of Windows.
#pragma once

#include "runtime/FontsPort.h"

namespace runtime::win32 {

class GdiFonts : public FontsPort {
 public:
    bool IsInstalled(StringView face) override;
    NativeHandle MakeIconTitleFont() override;
    NativeHandle StockGuiFont() override;
    NativeHandle Select(NativeHandle context, NativeHandle font) override;
    String FaceName(NativeHandle context) override;
    void ReleaseContext(NativeHandle window, NativeHandle context) override;
    void Delete(NativeHandle font) override;
};

}  // namespace runtime::win32
