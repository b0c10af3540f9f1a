// An observer receives reports about the component: its forms, errors that never reach a client, and the result of each
// call of an event sink. The composition chooses at most one observer.
#pragma once

#include <chrono>
#include <cstdint>
#include <exception>

#include "runtime/FormObserver.h"
#include "runtime/Text.h"

namespace host {

/// The component calls the functions below on the home thread. The functions must not throw.
class Observer : public runtime::FormObserver {
 public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// The main form's load has failed. All forms will be unloaded. The error does not reach the caller of the load.
    virtual void LoadShutDown(const std::exception& error) noexcept = 0;
    /// A command has failed. The error will be shown to the user, unless it is a silent error or too many messages are
    /// open. In each case, all forms will then be unloaded.
    virtual void CommandFailed(const std::exception_ptr& error) noexcept = 0;
    /// The component is about to call a client's sink with an event. `connection` is the cookie that Advise returned.
    /// Returns the start time of the call.
    virtual TimePoint SinkCalled(std::uint32_t connection, runtime::StringView Aname,
                                 runtime::StringView sCommand) noexcept = 0;
    /// A sink has returned `result`. `start` is the return value of SinkCalled.
    virtual void SinkAnswered(std::uint32_t connection, std::uint32_t result, TimePoint start) noexcept = 0;
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
