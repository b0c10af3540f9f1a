// A verb of the tool: its name, its help, and the function that carries it out. Verbs.cpp has the table of all verbs. A
// new verb is one file and one row there.
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

/// What follows the verb on the command line.
using Arguments = std::vector<String>;

/// The standard streams. They carry UTF-8 bytes as they are, with line feeds alone as line ends.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

enum ExitCode : int {
    kSuccess = 0,
    kFailure = 1,
    kBadUsage = 2,
    // For verbs that give a user's answer: no answer has these codes.
    kDialogBadUsage = 64,
    kDialogFailure = 65,
};

struct Verb {
    std::string_view name;
    /// One line, without a full stop.
    std::string_view summary;
    /// Usage, then what it does, then an example; ends with a line feed.
    std::string_view help;
    /// Gives the exit code. An exception ends the tool with its text and `failure`, a UsageError with `badUsage`.
    int (*run)(const Arguments& arguments, Console& console);
    int failure = kFailure;
    int badUsage = kBadUsage;
};

/// The arguments cannot be understood. The text (UTF-8) says why.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// There is no such option.
class UnknownOptionError : public UsageError {
 public:
    UnknownOptionError(const std::string& text, std::string option) : UsageError(text), option_(std::move(option)) {}

    /// As it was given, in UTF-8.
    const std::string& Option() const { return option_; }

 private:
    std::string option_;
};

}  // namespace tools
