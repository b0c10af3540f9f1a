// A program without a console. It shows no window and ends after a minute with code 1.
#include "runtime/win32/WindowsHeaders.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // Under Wine, the program has its starter's console and would receive Ctrl+C.
    FreeConsole();
    // The test waits for this event.
    CreateEventW(nullptr, TRUE, TRUE, L"K4T windowed program");
    constexpr DWORD kMinute = 60'000;
    Sleep(kMinute);
    return 1;
}
