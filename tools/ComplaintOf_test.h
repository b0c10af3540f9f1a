// The error messages of argument parsers, for tests.
#pragma once

#include <string>

#include "tools/Usage.h"

namespace tools {

/// The text of the UsageError that `Read` throws for `arguments`, or "(none)" if it accepts them.
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
