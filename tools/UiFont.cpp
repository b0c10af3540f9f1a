#include "tools/UiFont.h"

#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tools {

services::FontRule ChooseFont(std::optional<std::int32_t> systemLcid) {
    const std::int32_t lcid = systemLcid ? *systemLcid : runtime::CurrentPorts().locale.SystemDefaultLcid();
    const HDC screen = GetDC(nullptr);
    const services::FontRule rule = services::ChooseUiFontFor(lcid, 0, reinterpret_cast<runtime::NativeHandle>(screen));
    if (!services::ReleasesContext(rule)) ReleaseDC(nullptr, screen);
    return rule;
}

}  // namespace tools
