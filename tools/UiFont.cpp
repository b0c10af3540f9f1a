#include "tools/UiFont.h"

#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tools {

services::FontRule ChooseFont(std::optional<std::int32_t> systemLcid) {
    const std::int32_t lcid = systemLcid ? *systemLcid : runtime::CurrentPorts().locale.SystemDefaultLcid();
    struct Screen {
        HDC context = GetDC(nullptr);
        bool isReleased = false;
        ~Screen() {
            if (!isReleased) ReleaseDC(nullptr, context);
        }
    } screen;
    const auto context = reinterpret_cast<runtime::NativeHandle>(screen.context);
    const services::FontRule rule = services::ChooseUiFontFor(lcid, 0, context);
    screen.isReleased = services::ReleasesContext(rule);
    return rule;
}

}  // namespace tools
