// This is the interface of the suite's kernel. The kernel stores named strings that all modules share ("kernel
// strings"), and the name of the open design. The functions have the names of the kernel library's functions.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace kernel_api {

using runtime::String;
using runtime::StringView;

/// Address of a zero-terminated text in the system's ANSI code page; 0 if there is no text. The address has 32 bits in
/// the component. The type is signed, because callers test for values <= 0.
using TextPointer = std::intptr_t;

/// False only for an address that no text can have. Windows never maps the first and the last 64 KB of the address
/// space, so that accesses through wrong pointers fail. Addresses above 2 GB are negative.
constexpr bool IsTextAddress(TextPointer pointer) {
    constexpr TextPointer kUnusedAddresses = 0x10000;
    return pointer <= -kUnusedAddresses || pointer >= kUnusedAddresses;
}

/// The kernel string that holds the current language's folder.
inline constexpr StringView kLanguageFolderKey = u"LANGUAGEPATH";

class Kernel {
 public:
    virtual ~Kernel() = default;

    /// Stores `value` under `key` for all modules. The kernel receives both texts in the ANSI code page. The kernel may
    /// rewrite the value in place. On return, `value` is the rewritten text up to the first NUL. Errors: 53 (no kernel
    /// library), 48 (the library does not load), 453 (the library lacks the entry).
    virtual void E_SetString(StringView key, String& value) = 0;
    /// Returns the address of the text under `key`, or a value <= 0 if there is no text. Raises the same errors.
    virtual TextPointer E_GetString(StringView key) = 0;
    /// Returns the handle of the design database that the kernel has open. Raises the same errors.
    virtual std::int32_t DB_DataBase() = 0;
    /// Returns the name of the object `handle`. Raises the same errors.
    virtual TextPointer O_GetName(std::int32_t handle) = 0;
};

/// Returns the kernel in use. Error 91 if no kernel was chosen.
Kernel& CurrentKernel();

}  // namespace kernel_api
