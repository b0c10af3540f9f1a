#include "runtime/win32/Win32Fonts.h"

#include <algorithm>
#include <cmath>

#include "runtime/win32/Pixels.h"

namespace runtime::win32 {
namespace {

constexpr float kPointsPerInch = 72.0F;

GdiFont MakeFont(const Font& font, int dpi) {
    LOGFONTW description{};
    // A negative value is the height of the characters, not the height of the cell.
    description.lfHeight = -std::lround(font.size * static_cast<float>(dpi) / kPointsPerInch);
    description.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    description.lfCharSet = static_cast<BYTE>(font.charset);
    const StringView name = StringView(font.name).substr(0, LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), description.lfFaceName);
    return GdiFont(CreateFontIndirectW(&description));
}

}  // namespace

HFONT Win32Fonts::Get(const Font& font) {
    const int dpi = ScreenDpi();
    GdiFont& made = fonts_[{font.name, font.size, font.charset, font.bold, dpi}];
    if (!made) made = MakeFont(font, dpi);
    return made ? made.Get() : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

}  // namespace runtime::win32
