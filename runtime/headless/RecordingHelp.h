// Implements a help viewer that opens nothing and records the calls.
#pragma once

#include <optional>
#include <vector>

#include "runtime/HelpPort.h"

namespace runtime::headless {

class RecordingHelp : public HelpPort {
 public:
    struct Call {
        NativeHandle owner;
        std::optional<String> opened;  ///< no value for a call of CloseAll
        bool operator==(const Call&) const = default;
    };

    void OpenContents(NativeHandle owner, StringView file) override { calls.push_back({owner, String(file)}); }
    void CloseAll(NativeHandle owner) override { calls.push_back({owner, std::nullopt}); }

    std::vector<Call> calls;
};

}  // namespace runtime::headless
