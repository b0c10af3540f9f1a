// Checks whether the component can split the suite's module list into fields. The list is the shared string "AllAps".
// The check does not use the component's field splitter (routing/FieldSplitter.h), because the field splitter never
// returns if a quote is not closed.
#pragma once

#include <cstddef>
#include <string>

#include "runtime/Text.h"

namespace tools {

struct ModuleListCheck {
    std::size_t count = 0;
    std::size_t ownPlace = 0;  ///< 1-based position of the last entry that names the component; 0 if there is none
    std::string problem;       ///< why the list cannot be split; empty if there is no problem
    runtime::String listWithout = {};  ///< the list without the field that causes the problem; empty without a problem
};

ModuleListCheck CheckModuleList(runtime::StringView list);

}  // namespace tools
