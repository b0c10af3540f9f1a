// A module of the suite as a client of the component: creates instances through COM, calls their members, and prints
// results and events.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "host/com/ComPtr.h"
#include "tools/HostScript.h"
#include "tools/SharedStrings.h"

namespace tools {

/// Use it on a thread in a single-threaded apartment. An event is printed at once, while the call that raises it is
/// running.
class ModuleHost {
 public:
    /// Prints one line, given without a line end.
    using Printer = std::function<void(const std::string& line)>;

    explicit ModuleHost(Printer print);

    /// Runs `command` and prints its result. If the component returns a failure, prints that and returns false. Throws
    /// HostScriptError if there is no such instance, and runtime::Error if the kernel library fails.
    bool Run(const HostCommand& command);
    /// Releases the remaining instances in the order of their creation. Returns false if a release failed.
    bool ReleaseAll();

 private:
    using Instance = host::com::ComPtr<_clsQmxBackProcess>;

    bool Create();
    bool Load(std::int32_t number);
    bool NotifyMe(std::int32_t number, const std::optional<String>& command);
    bool SeverPath(std::int32_t number, const std::optional<String>& value);
    // The commands 'send', 'sendall' and 'shell', through the instance's diagnostics interface.
    bool AP_SendCmd(std::int32_t number, StringView module, StringView command);
    bool AP_SendCmdAll(std::int32_t number, StringView command);
    bool AP_Shell(std::int32_t number, StringView module, std::int16_t mode, StringView commandLine);
    bool Release(std::int32_t number);
    void PrintString(StringView key);
    void PrintStrings();
    void PrintState();

    Instance NewInstance(std::int32_t number);
    _clsQmxBackProcess& Find(std::int32_t number) const;
    template <typename Call>
    bool Report(std::int32_t number, Call&& call);

    const Printer print_;
    SharedStrings strings_;
    std::map<std::int32_t, Instance> instances_;
    std::int32_t lastNumber_ = 0;
};

}  // namespace tools
