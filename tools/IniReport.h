// Reports on MARLENTO.INI for the file's author. The report lists the settings that the component reads. It also lists
// lines that look like settings but have no effect or an unintended effect.
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
    std::vector<std::string> notTaken;  ///< other keys in the component's section
    std::vector<IniRemark> remarks;
};

/// Returns the report on `text`, the decoded file. `locale` decides which letters differ only in case.
IniReport ReportOnIni(runtime::StringView text, runtime::LocalePort& locale);

}  // namespace tools
