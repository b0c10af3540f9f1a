// The suite's shared strings as the tool looks at them, through the kernel library beside it or else the system's.
#pragma once

#include <map>
#include <optional>

#include "kernel_api/win32/KernelLibrary.h"
#include "runtime/win32/Win32Locale.h"

namespace tools {

using runtime::String;
using runtime::StringView;

/// The library is loaded at the first call. All throw runtime::Error 53 or 48 (the kernel library is not there or
/// will not load) and 453 (it lacks an entry).
class SharedStrings {
 public:
    SharedStrings();

    /// None when there is no such string.
    std::optional<String> Get(StringView key);
    void Set(StringView key, StringView value);
    /// Every string by its key, in the order of the keys' characters. Only the development kernel can list them: error
    /// 453 with another one.
    std::map<String, String> All();

 private:
    kernel_api::win32::KernelLibrary kernel_;
    runtime::win32::Win32Locale locale_;
};

}  // namespace tools
