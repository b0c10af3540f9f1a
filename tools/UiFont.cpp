#include "tools/UiFont.h"

#include "runtime/Ports.h"
#include "runtime/ScopeGuard.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tools {

services::FontRule ChooseFont(std::optional<std::int32_t> systemLcid) {
    const std::int32_t lcid = systemLcid ? *systemLcid : runtime::CurrentPorts().locale.SystemDefaultLcid();
    const HDC context = GetDC(nullptr);
    bool isReleased = false;
    const runtime::ScopeGuard released([&] {
        if (!isReleased) ReleaseDC(nullptr, context);
    });
    const services::FontRule rule =
        services::ChooseUiFontFor(lcid, 0, reinterpret_cast<runtime::NativeHandle>(context));
    isReleased = services::ReleasesContext(rule);
    return rule;
}

}  // namespace tools
