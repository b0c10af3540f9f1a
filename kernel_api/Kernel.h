// The suite's kernel, as this component calls it: named strings shared by all modules ("kernel strings"), and the
// name of the open design. The names are those of the kernel library's own functions.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace kernel_api {

using runtime::String;
using runtime::StringView;

/// Address of a zero-terminated text in the system's ANSI code page, as the kernel hands it out; 0 when there is
/// none. It is 32 bits wide in the component, and signed, as its callers compare it.
using TextPointer = std::intptr_t;

/// The kernel string that holds the current language's folder.
inline constexpr StringView kLanguageFolderKey = u"LANGUAGEPATH";

class Kernel {
 public:
    virtual ~Kernel() = default;

    /// Stores `value` under `key` for all modules. Both cross as ANSI; the kernel may rewrite the value in place, and
    /// `value` is what it left, up to the first NUL. Error 53 (no kernel library),
    /// 48 (it will not load) or 453 (an entry is missing).
    virtual void E_SetString(StringView key, String& value) = 0;
    /// The text under `key`, or a value <= 0 when there is none. Errors as above.
    virtual TextPointer E_GetString(StringView key) = 0;
    /// Handle of the design database that the kernel has open. Errors as above.
    virtual std::int32_t DB_DataBase() = 0;
    /// Name of the object `handle`. Errors as above.
    virtual TextPointer O_GetName(std::int32_t handle) = 0;
};

/// The kernel in use. Error 91 before one was chosen.
Kernel& CurrentKernel();

}  // namespace kernel_api
