// The suite's shared strings as the tool looks at them, through a kernel library.
#pragma once

#include <map>
#include <memory>
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
    explicit SharedStrings(std::unique_ptr<kernel_api::win32::KernelLibrary> kernel) : kernel_(std::move(kernel)) {}

    /// None when there is no such string.
    std::optional<String> Get(StringView key);
    void Set(StringView key, StringView value);
    /// Every string by its key, in the order of the keys' characters. Only the development kernel can list them: error
    /// 453 with another one.
    std::map<String, String> All();
    /// Full path of the library.
    String Library() { return kernel_->Path(); }

 private:
    std::unique_ptr<kernel_api::win32::KernelLibrary> kernel_;
    runtime::win32::Win32Locale locale_;
};

}  // namespace tools
