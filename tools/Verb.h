// A verb of the tool: its name, its help, and the function that runs it. Verbs.cpp has the table of all verbs. A new
// verb needs one file and one row in that table.
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

/// The standard streams. They carry UTF-8 without conversion; a line ends with a line feed only.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

enum ExitCode : int {
    kSuccess = 0,
    kFailure = 1,
    kBadUsage = 2,
    // For verbs whose exit code is the user's answer. No answer uses these codes.
    kDialogBadUsage = 64,
    kDialogFailure = 65,
    kDialogTimedOut = 66,
};

struct Verb {
    std::string_view name;
    /// One line, without a full stop.
    std::string_view summary;
    /// Usage, description, example. Ends with a line feed.
    std::string_view help;
    /// Returns the exit code. If it throws, the tool prints the exception's text and exits with `badUsage` after a
    /// UsageError, with `failure` after any other exception.
    int (*run)(const Arguments& arguments, Console& console);
    int failure = kFailure;
    int badUsage = kBadUsage;
};

/// The arguments are wrong. The text (UTF-8) says why.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// An option is unknown.
class UnknownOptionError : public UsageError {
 public:
    UnknownOptionError(const std::string& text, std::string option) : UsageError(text), option_(std::move(option)) {}

    /// The option as given, in UTF-8.
    const std::string& Option() const { return option_; }

 private:
    std::string option_;
};

}  // namespace tools
