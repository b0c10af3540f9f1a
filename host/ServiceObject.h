// The service object as the COM edge calls it. The component's own is clsQmxBackProcess; the edge's tests have a
// double.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "runtime/Text.h"

namespace host {

using runtime::String;
using runtime::StringView;

/// Raises the instance's event at its client. Both strings are by reference: what one sink changes, the next one sees.
/// Throws the first error of a sink after all were told.
using NotifyServerEvent = std::function<void(String& Aname, String& sCommand)>;

/// What is said of an instance that has been terminated.
inline constexpr StringView kInstanceHasEnded = u"this instance has ended; create a new one";

/// Called on the home apartment's thread only. Every method may throw.
class ServiceObject {
 public:
    ServiceObject() = default;
    ServiceObject(const ServiceObject&) = delete;
    ServiceObject& operator=(const ServiceObject&) = delete;
    virtual ~ServiceObject() = default;

    /// Called once, before destruction, while the event still reaches the client.
    virtual void Terminate() = 0;
    virtual bool Load(std::int16_t iMode) = 0;
    /// The texts are the client's own: they hold until client code runs.
    virtual void NotifyMe(StringView Aname, StringView sCommand) = 0;
    virtual String SeverPath() = 0;
    virtual void SetSeverPath(StringView value) = 0;

    // For diagnostics: the main form's operations, each of which raises the event of every instance, and what commands
    // have set.
    virtual void AP_SendCmd(String module, String command) = 0;
    virtual void AP_SendCmdAll(String command) = 0;
    virtual void AP_Shell(String module, std::int16_t mode, StringView commandLine) = 0;
    virtual String CurrentDesignName() = 0;
    virtual String LanguagePath() = 0;
    /// The main form's; none while it is not loaded.
    virtual std::optional<String> Caption() = 0;
};

}  // namespace host
