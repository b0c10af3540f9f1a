// Checks whether the suite's module list, the shared string "AllAps", can be split into fields. It does not use the
// component's splitter, because that never returns if a quote is not closed.
#pragma once

#include <cstddef>
#include <string>

#include "runtime/Text.h"

namespace tools {

struct ModuleListCheck {
    std::size_t count = 0;
    std::size_t ownPlace = 0;          ///< from 1, the last occurrence; 0 if it is missing
    std::string problem;               ///< why the list cannot be split; empty if it can
    runtime::String listWithout = {};  ///< if there is a problem: the list without the field that causes it
};

ModuleListCheck CheckModuleList(runtime::StringView list);

}  // namespace tools
