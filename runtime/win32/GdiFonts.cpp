#include "runtime/win32/GdiFonts.h"

#include <algorithm>

#include "runtime/win32/Handle.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {
namespace {

constexpr UINT kIconTitleSize = 61;
constexpr std::size_t kFaceBuffer = 80;

/// A LOGFONTA with space for kIconTitleSize bytes. The code passes this size to the system.
struct IconTitleDescription {
    LOGFONTA font;
    char spare[4];
};
static_assert(sizeof(IconTitleDescription) >= kIconTitleSize);

HGDIOBJ Object(NativeHandle handle) {
    return reinterpret_cast<HGDIOBJ>(handle);
}

NativeHandle Number(HGDIOBJ object) {
    return reinterpret_cast<NativeHandle>(object);
}

HDC Context(NativeHandle handle) {
    return reinterpret_cast<HDC>(handle);
}

int CALLBACK NoteFound(const LOGFONTW* /*font*/, const TEXTMETRICW* /*metric*/, DWORD /*type*/, LPARAM found) noexcept {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

}  // namespace

bool GdiFonts::IsInstalled(StringView face) {
    if (face.empty() || face.size() >= LF_FACESIZE) return false;
    LOGFONTW description{};
    // Accept any character set. For a fixed character set, the system may prefer another face that has this character
    // set.
    description.lfCharSet = DEFAULT_CHARSET;
    std::copy(face.begin(), face.end(), description.lfFaceName);
    bool found = false;
    const MemoryContext context(CreateCompatibleDC(nullptr));
    EnumFontFamiliesExW(context.Get(), &description, NoteFound, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

NativeHandle GdiFonts::MakeIconTitleFont() {
    IconTitleDescription description{};
    if (!SystemParametersInfoA(SPI_GETICONTITLELOGFONT, kIconTitleSize, &description, 0)) return 0;
    return Number(CreateFontIndirectA(&description.font));
}

NativeHandle GdiFonts::StockGuiFont() {
    return Number(GetStockObject(DEFAULT_GUI_FONT));
}

NativeHandle GdiFonts::Select(NativeHandle context, NativeHandle font) {
    return Number(SelectObject(Context(context), Object(font)));
}

String GdiFonts::FaceName(NativeHandle context) {
    std::string buffer(kFaceBuffer, ' ');
    // For an invalid context, Wine writes uninitialised memory into the buffer.
    if (GetObjectType(Context(context)) != 0) {
        GetTextFaceA(Context(context), static_cast<int>(buffer.size()), buffer.data());
    }
    return Win32Locale().FromAnsi(buffer.substr(0, buffer.find('\0')));
}

void GdiFonts::ReleaseContext(NativeHandle window, NativeHandle context) {
    ReleaseDC(reinterpret_cast<HWND>(window), Context(context));
}

void GdiFonts::Delete(NativeHandle font) {
    DeleteObject(Object(font));
}

}  // namespace runtime::win32
