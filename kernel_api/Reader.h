// The suite's shared reader of settings and localised texts, as this component calls it.
#pragma once

#include "kernel_api/Kernel.h"

namespace kernel_api {

/// The suite's INI file, in its system folder.
inline constexpr StringView kIniFileName = u"MARLENTO.INI";

class Reader {
 public:
    virtual ~Reader() = default;

    /// Appends a backslash to `folder` unless it ends in one. From now on the reader uses the suite's INI file in that
    /// folder.
    virtual void NormaliseFolder(String& folder) = 0;
    /// The setting `key` of `application`, or `defaultValue` if there is none.
    virtual String GetSetting(StringView application, StringView key, StringView defaultValue) = 0;
    /// The text under `textId` in the current language, or `defaultText` if there is none.
    virtual String GetText(StringView defaultText, StringView textId) = 0;
    /// The text at `pointer`, converted from the system's ANSI code page; "" for 0.
    virtual String TextAt(TextPointer pointer) = 0;
};

/// The reader in use. Error 91 before a reader was chosen.
Reader& CurrentReader();

}  // namespace kernel_api
