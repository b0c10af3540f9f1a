#include "runtime/Screen.h"

#include "runtime/Error.h"
#include "runtime/Ports.h"

namespace runtime {
namespace {
constexpr std::int16_t kLastPointer = 15;
constexpr std::int16_t kCustomPointer = 99;
}  // namespace

Size ScreenSize() {
    return CurrentPorts().windows.ScreenSize();
}

std::int16_t MousePointer() {
    return CurrentPorts().windows.MousePointer();
}

void SetMousePointer(std::int16_t shape) {
    const bool known = (shape >= 0 && shape <= kLastPointer) || shape == kCustomPointer;
    if (!known) throw Error(kInvalidPropertyValue);
    CurrentPorts().windows.SetMousePointer(shape);
}

}  // namespace runtime
