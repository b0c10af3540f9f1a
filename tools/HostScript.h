// The lines that drive `backproc host`: one command a line, read into data before anything is done.
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
    /// The instance (from 1), or for kPump the time in milliseconds.
    std::int32_t number = 0;
    /// The string's key, for kSet and kGet; the module, for kSend and kShell.
    String key;
    /// For kShell.
    std::int16_t mode = 0;
    /// The rest of the line after one blank; none when the line ends before that blank.
    std::optional<String> text;

    bool operator==(const HostCommand&) const = default;
};

/// The line is no command. The text (UTF-8) says why.
class HostScriptError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Reads one line, given without its line end. Blank lines and those that start with '#' are kNothing.
/// Throws HostScriptError.
HostCommand ParseHostCommand(StringView line);

}  // namespace tools
