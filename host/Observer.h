// Watches the component from outside: its forms, errors that never reach a client, and how each client takes an event.
// There is one at most, chosen by the composition.
#pragma once

#include <cstdint>
#include <exception>

#include "runtime/FormObserver.h"
#include "runtime/Text.h"

namespace host {

/// Called on the home thread. None of the functions may throw.
class Observer : public runtime::FormObserver {
 public:
    /// The main form's load has failed and unloads all forms; the error is not passed on.
    virtual void LoadShutDown(const std::exception& error) noexcept = 0;
    /// A command has failed. Its error was reported, unless it is a silent one, and all forms were unloaded.
    virtual void CommandFailed(const std::exception_ptr& error) noexcept = 0;
    /// A client's sink is called with an event; `connection` is its cookie at the instance.
    virtual void SinkCalled(std::uint32_t connection, runtime::StringView Aname,
                            runtime::StringView sCommand) noexcept = 0;
    /// The last sink that was called and has not answered yet answers with this HRESULT.
    virtual void SinkAnswered(std::uint32_t connection, std::uint32_t result) noexcept = 0;
};

namespace detail {
inline Observer* observer = nullptr;
}

/// Null when nothing watches.
inline Observer* CurrentObserver() noexcept {
    return detail::observer;
}
/// Chooses it, for the forms too; null takes the choice back. The caller keeps ownership.
inline void UseObserver(Observer* observer) noexcept {
    detail::observer = observer;
    runtime::UseFormObserver(observer);
}

}  // namespace host
