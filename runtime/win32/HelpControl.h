// The HTML Help control of Windows, which is not on every system: bound when help is first asked for, and never let
// go again, because its windows live on threads of its own.
#pragma once

#include <cstdint>
#include <utility>

#include "runtime/HelpPort.h"
#include "runtime/win32/TrustedLibrary.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class HelpControl : public HelpPort {
 public:
    /// `library` is the full path of the control; without it, it is the system's own.
    explicit HelpControl(String library = InSystemFolder(u"hhctrl.ocx")) : library_(std::move(library)) {}

    // In the system's ANSI code page, as the suite's programs call the control.

    void OpenContents(NativeHandle owner, StringView file) override;
    void CloseAll(NativeHandle owner) override;

    /// Opens `file` at the topic numbered `context`, or at its table of contents for 0. False, and nothing more, on a
    /// system without the control.
    bool Open(HWND owner, const String& file, std::int32_t context);

 private:
    template <typename Character>
    using HtmlHelp = HWND(WINAPI*)(HWND owner, const Character* file, UINT command, DWORD_PTR data);

    /// Null on a system without the control.
    template <typename Function>
    Function Entry(const char* name);
    void Call(NativeHandle owner, StringView file, UINT command);

    const String library_;
    HMODULE control_ = nullptr;
};

}  // namespace runtime::win32
