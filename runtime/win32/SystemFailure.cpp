#include "runtime/win32/SystemFailure.h"

#include <string>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

Error SystemFailure(StringView what) {
    const String number = FromAscii(std::to_string(GetLastError()));
    return ErrorAbout(kOutOfMemory, String(what) + u" (system error " + number + u")");
}

}  // namespace runtime::win32
