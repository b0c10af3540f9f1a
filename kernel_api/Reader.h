// This is the interface of the suite's shared reader, which reads settings and localised texts.
#pragma once

#include "kernel_api/Kernel.h"

namespace kernel_api {

/// The name of the suite's INI file in the system folder.
inline constexpr StringView kIniFileName = u"MARLENTO.INI";

class Reader {
 public:
    virtual ~Reader() = default;

    /// Appends a backslash to `folder` if it does not end in a backslash. Afterwards the reader uses the suite's INI
    /// file in that folder.
    virtual void NormaliseFolder(String& folder) = 0;
    /// Returns the setting `key` of `application`, or `defaultValue` if there is no setting.
    virtual String GetSetting(StringView application, StringView key, StringView defaultValue) = 0;
    /// Returns the text under `textId` in the current language, or `defaultText` if there is no text.
    virtual String GetText(StringView defaultText, StringView textId) = 0;
    /// Returns the text at `pointer`, converted from the system's ANSI code page; "" for 0.
    virtual String TextAt(TextPointer pointer) = 0;
};

/// Returns the reader in use. Error 91 if no reader was chosen.
Reader& CurrentReader();

}  // namespace kernel_api
