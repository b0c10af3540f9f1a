// A module's side of the component: creates instances through COM as the suite's modules do, calls their members and
// prints what comes back and what they announce.
#pragma once

#include <iosfwd>
#include <map>
#include <optional>

#include "host/com/ComPtr.h"
#include "tools/HostScript.h"
#include "tools/SharedStrings.h"

namespace tools {

/// Lives on a single-threaded apartment. Events are printed while a member is under way, each line at once.
class ModuleHost {
 public:
    explicit ModuleHost(std::ostream& out);

    /// Carries `command` out and prints its outcome. False when the component refused it, which is printed too.
    /// Throws HostScriptError when there is no such instance, runtime::Error when the kernel library fails.
    bool Run(const HostCommand& command);
    /// Releases what is left, in order of creation. False when one of them failed.
    bool ReleaseAll();

 private:
    using Instance = host::com::ComPtr<_clsQmxBackProcess>;

    bool Create();
    bool Load(std::int32_t number);
    bool NotifyMe(std::int32_t number, const std::optional<String>& command);
    bool SeverPath(std::int32_t number, const std::optional<String>& value);
    // The lines 'send', 'sendall' and 'shell', through the instance's diagnostics.
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
    void Print(const std::string& line);

    std::ostream& out_;
    SharedStrings strings_;
    std::map<std::int32_t, Instance> instances_;
    std::int32_t lastNumber_ = 0;
};

}  // namespace tools
