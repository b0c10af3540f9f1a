#include "runtime/win32/Win32MessageBox.h"

#include "runtime/Error.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

std::int32_t Win32MessageBox::Show(StringView prompt, std::int32_t flags, StringView title) {
    const String promptText(prompt);
    const String titleText(title);
    const int answer = Callback::Into(
        [&] { return MessageBoxW(GetActiveWindow(), Wide(promptText), Wide(titleText), static_cast<UINT>(flags)); });
    if (answer == 0) throw Error(kOutOfMemory);
    return answer;
}

}  // namespace runtime::win32
