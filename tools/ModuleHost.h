// Acts as a module of the suite. ModuleHost creates instances of the component through COM, calls their members, and
// prints results and events.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "host/com/ComPtr.h"
#include "tools/HostScript.h"
#include "tools/SharedStrings.h"

namespace tools {

/// Use the object on a thread in a single-threaded apartment. An event is printed while the call that raises the event
/// is still running.
class ModuleHost {
 public:
    /// Prints one line. The argument has no line end.
    using Printer = std::function<void(const std::string& line)>;

    explicit ModuleHost(Printer print);

    /// Runs `command` and prints the result. If the component returns a failure, prints the failure and returns false.
    /// Throws ComFailure if the component returns a failure for kState. Throws HostScriptError if the command's
    /// instance does not exist or has no diagnostics interface. Throws runtime::Error if the kernel library fails.
    bool Run(const HostCommand& command);
    /// Releases the remaining instances in the order of their creation. Returns false if a release failed.
    bool ReleaseAll();

 private:
    using Instance = host::com::ComPtr<_clsQmxBackProcess>;

    bool Create();
    bool Load(std::int32_t number);
    bool NotifyMe(std::int32_t number, const std::optional<String>& command);
    bool SeverPath(std::int32_t number, const std::optional<String>& value);
    // Run the commands 'send', 'sendall' and 'shell' through the instance's diagnostics interface.
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
