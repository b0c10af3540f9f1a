// Gives the tool access to the suite's shared strings. Uses a kernel library.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "kernel_api/win32/KernelLibrary.h"
#include "runtime/win32/Win32Locale.h"

namespace tools {

using runtime::String;
using runtime::StringView;

/// The first call loads the library. All members throw runtime::Error 53 if the library is missing, 48 if the library
/// cannot be loaded, and 453 if the library lacks a function.
class SharedStrings {
 public:
    explicit SharedStrings(std::unique_ptr<kernel_api::win32::KernelLibrary> kernel) : kernel_(std::move(kernel)) {}

    /// Returns the string's value. Returns no value if the string does not exist.
    std::optional<String> Get(StringView key);
    void Set(StringView key, StringView value);
    /// Returns all strings, sorted by key. Only the development kernel can list strings. With any other kernel, the
    /// function throws error 453.
    std::map<String, String> All();
    /// Returns the full path of the library.
    String Library() { return kernel_->Path(); }

 private:
    std::unique_ptr<kernel_api::win32::KernelLibrary> kernel_;
    runtime::win32::Win32Locale locale_;
};

}  // namespace tools
