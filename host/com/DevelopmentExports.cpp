#include "host/com/DevelopmentExports.h"

#include "host/DevelopmentValues.h"
#include "host/com/Bstr.h"
#include "runtime/Error.h"

using host::com::Bstr;

BSTR K4TDev_Value(const wchar_t* name) noexcept {
    BSTR found = nullptr;
    runtime::SkipError([&] {
        const auto value = name ? host::DevelopmentValue(runtime::win32::ToString(name)) : std::nullopt;
        if (value) found = Bstr(*value).Detach();
    });
    return found;
}
