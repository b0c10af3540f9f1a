// What stands behind the COM edge. The edge knows the service object only as this interface, and the functions
// below are supplied by whoever links it: by the component itself in the DLL, by a double in the tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "host/InstanceEnded.h"
#include "runtime/Text.h"

namespace host::com {

using runtime::String;
using runtime::StringView;

/// Raises the event at the client; both strings are by reference. Throws the first error of a sink.
using NotifyServerEvent = std::function<void(String& Aname, String& sCommand)>;

/// A by-reference text: what the client gave, and what the call makes of it, if it makes anything.
class TextInOut {
 public:
    explicit TextInOut(StringView given) : given_(given) {}

    /// The client's own text; it holds until client code runs.
    StringView Given() const { return given_; }
    void Change(String text) { changed_ = std::move(text); }
    const std::optional<String>& Changed() const { return changed_; }

 private:
    StringView given_;
    std::optional<String> changed_;
};

/// The service object as the edge calls it: on the home apartment's thread only. Every method may throw.
class ServiceObject {
 public:
    ServiceObject() = default;
    ServiceObject(const ServiceObject&) = delete;
    ServiceObject& operator=(const ServiceObject&) = delete;
    virtual ~ServiceObject() = default;

    /// Called once, before destruction, while the event still reaches the client.
    virtual void Terminate() = 0;
    virtual bool Load(std::int16_t& iMode) = 0;
    virtual void NotifyMe(TextInOut& Aname, TextInOut& sCommand) = 0;
    virtual String SeverPath() = 0;
    virtual void SetSeverPath(StringView value) = 0;
};

/// A new service object. Throws what its creation throws.
std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer);
/// How many windows of the component live. Called from any thread.
std::size_t LiveWindows() noexcept;
/// The home apartment or its thread has ended while instances live: no form is loaded any more. Called from any thread,
/// and under a lock: no waiting for other threads.
void GiveUpForms() noexcept;

}  // namespace host::com
