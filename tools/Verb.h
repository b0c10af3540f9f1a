// Defines a verb of the tool: the name, the help, and the function that runs the verb. Verbs.cpp has the table of all
// verbs. A new verb needs a file, a declaration in Verbs.h and a row in the table.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/Text.h"

namespace tools {

using runtime::String;
using runtime::StringView;

/// The arguments after the verb.
using Arguments = std::vector<String>;

/// The standard streams. The text is UTF-8 and is not converted. A line of output ends with a line feed only.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

enum ExitCode : int {
    kSuccess = 0,
    kFailure = 1,
    kBadUsage = 2,
    // Verbs whose exit code is the user's answer use the following codes. No answer has one of these codes.
    kDialogBadUsage = 64,
    kDialogFailure = 65,
    kDialogTimedOut = 66,
};

struct Verb {
    std::string_view name;
    /// One line, without a full stop.
    std::string_view summary;
    /// The usage, the description and an example. Ends with a line feed.
    std::string_view help;
    /// Returns the exit code. After an exception, the tool prints the exception's text. The exit code is then
    /// `badUsage` for a UsageError and `failure` for any other exception.
    int (*run)(const Arguments& arguments, Console& console);
    int failure = kFailure;
    int badUsage = kBadUsage;
};

/// Reports wrong arguments. The text (UTF-8) contains the reason.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Reports an unknown option.
class UnknownOptionError : public UsageError {
 public:
    UnknownOptionError(const std::string& text, std::string option) : UsageError(text), option_(std::move(option)) {}

    /// Returns the option as the user gave it, in UTF-8.
    const std::string& Option() const { return option_; }

 private:
    std::string option_;
};

}  // namespace tools
