// An observer receives reports about the component: its forms, errors that never reach a client, and the result of each
// event sink. The composition chooses at most one observer.
#pragma once

#include <cstdint>
#include <exception>

#include "runtime/FormObserver.h"
#include "runtime/Text.h"

namespace host {

/// The component calls the functions on the home thread. The functions must not throw.
class Observer : public runtime::FormObserver {
 public:
    /// The main form's load has failed. All forms will be unloaded. The error does not reach the caller of the load.
    virtual void LoadShutDown(const std::exception& error) noexcept = 0;
    /// A command has failed, and all forms were unloaded. The error was reported to the user, unless it is a silent
    /// error.
    virtual void CommandFailed(const std::exception_ptr& error) noexcept = 0;
    /// The component calls a client's sink with an event. `connection` is the sink's cookie at its instance.
    virtual void SinkCalled(std::uint32_t connection, runtime::StringView Aname,
                            runtime::StringView sCommand) noexcept = 0;
    /// A sink has returned `result`. The sink is the last called sink that had not returned.
    virtual void SinkAnswered(std::uint32_t connection, std::uint32_t result) noexcept = 0;
};

namespace detail {
inline Observer* observer = nullptr;
}

/// Returns the observer; null if there is no observer.
inline Observer* CurrentObserver() noexcept {
    return detail::observer;
}
/// Makes `observer` the observer of the component and its forms. Null removes the observer. The caller keeps ownership.
inline void UseObserver(Observer* observer) noexcept {
    detail::observer = observer;
    runtime::UseFormObserver(observer);
}

}  // namespace host
