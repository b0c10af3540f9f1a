// The suite's shared strings, accessed by the tool through a kernel library.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "kernel_api/win32/KernelLibrary.h"
#include "runtime/win32/Win32Locale.h"

namespace tools {

using runtime::String;
using runtime::StringView;

/// The library is loaded at the first call. All members throw runtime::Error 53 if the library is missing, 48 if it
/// cannot be loaded, and 453 if it lacks a function.
class SharedStrings {
 public:
    explicit SharedStrings(std::unique_ptr<kernel_api::win32::KernelLibrary> kernel) : kernel_(std::move(kernel)) {}

    /// The string's value. None if there is no such string.
    std::optional<String> Get(StringView key);
    void Set(StringView key, StringView value);
    /// All strings, sorted by key. Throws error 453 unless the library is the development kernel: no other kernel can
    /// list its strings.
    std::map<String, String> All();
    /// Full path of the library.
    String Library() { return kernel_->Path(); }

 private:
    std::unique_ptr<kernel_api::win32::KernelLibrary> kernel_;
    runtime::win32::Win32Locale locale_;
};

}  // namespace tools
