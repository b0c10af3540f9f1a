// The HTML Help control of Windows, which is not on every system: bound when help is first asked for, and never let
// go again, because its windows live on threads of its own.
#pragma once

#include <cstdint>

#include "runtime/Text.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class HelpControl {
 public:
    explicit HelpControl(const wchar_t* library = L"hhctrl.ocx") : library_(library) {}

    /// Opens `file` at the topic numbered `context`, or at its table of contents for 0. False, and nothing more, on a
    /// system without the control. A file that is missing is the control's to report.
    bool Open(HWND owner, const String& file, std::int32_t context);

 private:
    using HtmlHelp = HWND(WINAPI*)(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data);

    HtmlHelp Bound();

    const wchar_t* library_;
    HtmlHelp htmlHelp_ = nullptr;
};

}  // namespace runtime::win32
