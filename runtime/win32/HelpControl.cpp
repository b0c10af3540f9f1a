#include "runtime/win32/HelpControl.h"

#include <string>

#include "runtime/win32/Callback.h"
#include "runtime/win32/Win32Locale.h"

namespace runtime::win32 {
namespace {

/// Commands of the control.
constexpr UINT kDisplayContents = 0x1;
constexpr UINT kDisplayContext = 0xF;
constexpr UINT kCloseAll = 0x12;

}  // namespace

void HelpControl::OpenContents(NativeHandle owner, StringView file) {
    Call(owner, file, kDisplayContents);
}

void HelpControl::CloseAll(NativeHandle owner) {
    Call(owner, {}, kCloseAll);
}

void HelpControl::Call(NativeHandle owner, StringView file, UINT command) {
    const auto htmlHelp = Entry<HtmlHelp<char>>("HtmlHelpA");
    if (!htmlHelp) return;
    const std::string name = Win32Locale().ToAnsi(file);
    Callback::CallSystem([&] { htmlHelp(reinterpret_cast<HWND>(owner), name.c_str(), command, 0); });
}

bool HelpControl::Open(HWND owner, const String& file, std::int32_t context) {
    const auto htmlHelp = Entry<HtmlHelp<wchar_t>>("HtmlHelpW");
    if (!htmlHelp) return false;
    htmlHelp(owner, Wide(file), context == 0 ? kDisplayContents : kDisplayContext, static_cast<DWORD>(context));
    return true;
}

template <typename Function>
Function HelpControl::Entry(const char* name) {
    if (!control_) control_ = LoadTrusted(library_).Release();
    if (!control_) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(control_, name)));
}

}  // namespace runtime::win32
