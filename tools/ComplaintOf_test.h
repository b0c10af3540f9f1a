// Tests use this function to get the error messages of argument parsers.
#pragma once

#include <string>

#include "tools/Usage.h"

namespace tools {

/// Returns the text of the UsageError that `Read` throws for `arguments`. Returns "(none)" if `Read` throws no error.
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
