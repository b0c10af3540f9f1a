#include "runtime/win32/OutOfResources.h"

#include <string>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

Error OutOfResources(StringView what) {
    return OutOfResources(what, GetLastError());
}

Error OutOfResources(StringView what, std::uint32_t systemError) {
    const String number = FromAscii(std::to_string(systemError));
    return ErrorAbout(kOutOfMemory, String(what) + u" (system error " + number + u")");
}

}  // namespace runtime::win32
