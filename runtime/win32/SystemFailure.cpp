#include "runtime/win32/SystemFailure.h"

#include <string>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

Error SystemFailure(StringView what) {
    return SystemFailure(what, GetLastError());
}

Error SystemFailure(StringView what, std::uint32_t systemError) {
    const String number = FromAscii(std::to_string(systemError));
    return ErrorAbout(kOutOfMemory, String(what) + u" (system error " + number + u")");
}

}  // namespace runtime::win32
