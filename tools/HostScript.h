// Parses the script of `backproc host`. The script has one command per line. The tool parses a line directly before it
// runs the line's command.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>

#include "runtime/Text.h"

namespace tools {

using runtime::String;
using runtime::StringView;

enum class HostVerb {
    kNothing,
    kCreate,
    kLoad,
    kNotify,
    kSever,
    kRelease,
    kSet,
    kGet,
    kStrings,
    kState,
    kPump,
    kSend,
    kSendAll,
    kShell
};

struct HostCommand {
    HostVerb verb = HostVerb::kNothing;
    /// The instance's number, from 1. For kPump, the time in milliseconds.
    std::int32_t number = 0;
    /// For kSet and kGet, the string's key. For kSend and kShell, the module.
    String key;
    /// The mode, for kShell only.
    std::int16_t mode = 0;
    /// The rest of the line after one blank. No value if the line ends before that blank.
    std::optional<String> text;

    bool operator==(const HostCommand&) const = default;
};

/// Reports a line that is not a valid command. The text (UTF-8) contains the reason.
class HostScriptError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Parses one line, given without a line end. Blank lines and lines that start with '#' become kNothing. Throws
/// HostScriptError for an invalid line.
HostCommand ParseHostCommand(StringView line);

}  // namespace tools
