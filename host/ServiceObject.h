// This interface connects the COM layer to the service object. The class clsQmxBackProcess implements the interface for
// the component. The tests of the COM layer use another implementation.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "runtime/Text.h"

namespace host {

using runtime::String;
using runtime::StringView;

/// Raises the instance's event at its client. Both strings are by reference, so a sink receives the changes of earlier
/// sinks. If sinks fail, the remaining sinks are still called. Then the first error is thrown.
using NotifyServerEvent = std::function<void(String& Aname, String& sCommand)>;

/// The description of the error that a call on a terminated instance raises.
inline constexpr StringView kInstanceHasEnded = u"this instance has ended; create a new one";

/// Use it only on the home thread. Every method may throw.
class ServiceObject {
 public:
    ServiceObject() = default;
    ServiceObject(const ServiceObject&) = delete;
    ServiceObject& operator=(const ServiceObject&) = delete;
    virtual ~ServiceObject() = default;

    /// Call it once, before the destruction and while the event can still reach the client.
    virtual void Terminate() = 0;
    virtual bool Load(std::int16_t iMode) = 0;
    /// Both texts belong to the client. They are valid until client code runs.
    virtual void NotifyMe(StringView Aname, StringView sCommand) = 0;
    virtual String SeverPath() = 0;
    virtual void SetSeverPath(StringView value) = 0;

    // For diagnostics: the main form's operations and the values that commands have set. Each operation raises the
    // event of every instance.
    virtual void AP_SendCmd(String module, String command) = 0;
    virtual void AP_SendCmdAll(String command) = 0;
    virtual void AP_Shell(String module, std::int16_t mode, StringView commandLine) = 0;
    virtual String CurrentDesignName() = 0;
    virtual String LanguagePath() = 0;
    /// Returns the main form's caption; no value if the form is not loaded.
    virtual std::optional<String> Caption() = 0;
};

}  // namespace host
