// Reports on MARLENTO.INI for the engineer who wrote it: the settings that the component reads, and the lines that look
// like settings but have no effect or an unintended one.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "runtime/LocalePort.h"

namespace tools {

struct IniRemark {
    std::size_t line = 0;  ///< counted from 1
    std::string what;
    std::string advice;
    bool operator==(const IniRemark&) const = default;
};

struct IniReport {
    std::vector<std::string> taken;     ///< keys of the settings that the component reads, in the file's order
    std::vector<std::string> notTaken;  ///< other keys of the component's section; the component does not read them
    std::vector<IniRemark> remarks;
};

/// `text` is the decoded file. `locale` decides which letters differ only in case.
IniReport ReportOnIni(runtime::StringView text, runtime::LocalePort& locale);

}  // namespace tools
