#include "runtime/win32/HelpControl.h"

#include "runtime/win32/Handle.h"

namespace runtime::win32 {
namespace {

/// Commands of the control.
constexpr UINT kDisplayContents = 0x1;
constexpr UINT kDisplayContext = 0xF;

}  // namespace

bool HelpControl::Open(HWND owner, const String& file, std::int32_t context) {
    const HtmlHelp htmlHelp = Bound();
    if (!htmlHelp) return false;
    htmlHelp(owner, Wide(file), context == 0 ? kDisplayContents : kDisplayContext, static_cast<DWORD>(context));
    return true;
}

HelpControl::HtmlHelp HelpControl::Bound() {
    if (htmlHelp_) return htmlHelp_;
    Library library(LoadLibraryW(library_));
    if (!library) return nullptr;
    htmlHelp_ = reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(GetProcAddress(library.Get(), "HtmlHelpW")));
    if (htmlHelp_) library.Release();
    return htmlHelp_;
}

}  // namespace runtime::win32
