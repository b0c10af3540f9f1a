// A help control for tests. To show the contents, it shows a plain window that does not get the keyboard focus. It
// closes the window after 500 ms. For each call, it writes a line to a file in its own folder: the owner ("owned" or
// "ownerless"), the help file and the command.
#include "runtime/win32/WindowsHeaders.h"

#include <fstream>
#include <string>

namespace {

constexpr UINT kDisplayContents = 1;
constexpr UINT kShownFor = 500;  // milliseconds

std::string NotesFile() {
    char path[MAX_PATH]{};
    GetModuleFileNameA(GetModuleHandleW(L"hhctrl.ocx"), path, MAX_PATH);
    return std::string(path) + ".txt";
}

void CALLBACK Close(HWND window, UINT, UINT_PTR, DWORD) noexcept {
    DestroyWindow(window);
}

}  // namespace

extern "C" HWND __stdcall HtmlHelpA(HWND owner, const char* file, UINT command, DWORD_PTR) {
    std::ofstream(NotesFile(), std::ios::app)
        << (IsWindow(owner) ? "owned" : "ownerless") << " [" << file << "] " << command << "\n";
    if (command != kDisplayContents) return nullptr;
    const HWND window = CreateWindowExW(WS_EX_NOACTIVATE, L"STATIC", L"help", WS_POPUP, 0, 0, 100, 100, nullptr,
                                        nullptr, nullptr, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    SetTimer(window, 1, kShownFor, Close);
    return window;
}
