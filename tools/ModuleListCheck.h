// Whether the suite's list of modules, the shared string "AllAps", can be split into its fields. It is looked at
// without the component's own splitter, which does not return for a quote that is never closed.
#pragma once

#include <cstddef>
#include <string>

#include "runtime/Text.h"

namespace tools {

struct ModuleListCheck {
    std::size_t count = 0;
    std::size_t ownPlace = 0;          ///< from 1, the last one if it occurs more than once; 0 when it does not
    std::string problem;               ///< why the list cannot be split; empty when it can
    runtime::String listWithout = {};  ///< with a problem: the list without the field that causes it
};

ModuleListCheck CheckModuleList(runtime::StringView list);

}  // namespace tools
