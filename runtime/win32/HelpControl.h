// Uses the HTML Help control of Windows. Some systems do not have the control. It is loaded when help is first needed.
// It is never unloaded, because its windows belong to its own threads.
#pragma once

#include <cstdint>
#include <utility>

#include "runtime/HelpPort.h"
#include "runtime/win32/TrustedLibrary.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class HelpControl : public HelpPort {
 public:
    /// `library` is the full path of the control. The default is the control in the system folder.
    explicit HelpControl(String library = InSystemFolder(u"hhctrl.ocx")) : library_(std::move(library)) {}

    // These functions pass `file` in the system's ANSI code page, as the suite's programs do.

    void OpenContents(NativeHandle owner, StringView file) override;
    void CloseAll(NativeHandle owner) override;

    /// Opens `file` at the topic with the number `context`; 0 opens the table of contents. If the system does not have
    /// the control, does nothing and returns false.
    bool Open(HWND owner, const String& file, std::int32_t context);

 private:
    template <typename Character>
    using HtmlHelp = HWND(WINAPI*)(HWND owner, const Character* file, UINT command, DWORD_PTR data);

    /// Returns the control's function; null if the system does not have the control.
    template <typename Function>
    Function Entry(const char* name);
    void Call(NativeHandle owner, StringView file, UINT command);

    const String library_;
    HMODULE control_ = nullptr;
};

}  // namespace runtime::win32
