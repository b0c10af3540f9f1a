// What the readers of arguments say to arguments that they refuse.
#pragma once

#include <string>

#include "tools/Usage.h"

namespace tools {

/// The text of the UsageError that `Read` throws for `arguments`, "(none)" when it takes them.
template <auto Read>
std::string ComplaintOf(const Arguments& arguments) {
    try {
        Read(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(none)";
}

}  // namespace tools
