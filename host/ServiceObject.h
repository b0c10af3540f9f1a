// The service object's interface for the COM layer. The component implements it in clsQmxBackProcess, the tests of the
// COM layer in a double.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "runtime/Text.h"

namespace host {

using runtime::String;
using runtime::StringView;

/// Raises the instance's event at its client. Both strings are by reference, so a sink receives the changes of earlier
/// sinks. If sinks fail, throws the first error after all sinks were called.
using NotifyServerEvent = std::function<void(String& Aname, String& sCommand)>;

/// Text of errors of a terminated instance.
inline constexpr StringView kInstanceHasEnded = u"this instance has ended; create a new one";

/// Home thread only. Every method may throw.
class ServiceObject {
 public:
    ServiceObject() = default;
    ServiceObject(const ServiceObject&) = delete;
    ServiceObject& operator=(const ServiceObject&) = delete;
    virtual ~ServiceObject() = default;

    /// To be called once, before destruction, while the event still reaches the client.
    virtual void Terminate() = 0;
    virtual bool Load(std::int16_t iMode) = 0;
    /// Both texts belong to the client and are valid until client code runs.
    virtual void NotifyMe(StringView Aname, StringView sCommand) = 0;
    virtual String SeverPath() = 0;
    virtual void SetSeverPath(StringView value) = 0;

    // For diagnostics: the main form's operations, each of which raises the event of every instance, and the values
    // that commands have set.
    virtual void AP_SendCmd(String module, String command) = 0;
    virtual void AP_SendCmdAll(String command) = 0;
    virtual void AP_Shell(String module, std::int16_t mode, StringView commandLine) = 0;
    virtual String CurrentDesignName() = 0;
    virtual String LanguagePath() = 0;
    /// The main form's caption; none while the form is not loaded.
    virtual std::optional<String> Caption() = 0;
};

}  // namespace host
