// What an engineer who wrote MARLENTO.INI should know about it: the settings that the component takes from it, and the
// lines that look like settings but have no effect, or another one than meant.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "runtime/LocalePort.h"

namespace tools {

struct IniRemark {
    std::size_t line = 0;  ///< from 1
    std::string what;
    std::string advice;
    bool operator==(const IniRemark&) const = default;
};

struct IniReport {
    std::vector<std::string> taken;     ///< keys of the settings that the component takes, in the file's order
    std::vector<std::string> notTaken;  ///< other keys of its section, which it does not read
    std::vector<IniRemark> remarks;
};

/// `text` is the decoded file. Letter case is the locale's.
IniReport ReportOnIni(runtime::StringView text, runtime::LocalePort& locale);

}  // namespace tools
