// Writes what the component's forms do, the errors that never reach a client, and the result of each event sink.
#pragma once

#include "host/Observer.h"
#include "trace/Line.h"

namespace trace {

class Watcher final : public host::Observer {
 public:
    /// `output` must outlive the object.
    explicit Watcher(Output& output) : output_(output) {}

    void Loading(const runtime::Form& form) noexcept override;
    void Loaded(const runtime::Form& form) noexcept override;
    void NotLoaded(const runtime::Form& form, const std::exception_ptr& error) noexcept override;
    void Unloading(const runtime::Form& form) noexcept override;
    void UnloadRefused(const runtime::Form& form) noexcept override;
    void Unloaded(const runtime::Form& form) noexcept override;
    void ErrorIgnored(const std::exception& error) noexcept override;
    void LoadShutDown(const std::exception& error) noexcept override;
    void CommandFailed(const std::exception_ptr& error) noexcept override;
    TimePoint SinkCalled(std::uint32_t connection, StringView Aname, StringView sCommand) noexcept override;
    void SinkAnswered(std::uint32_t connection, std::uint32_t result, TimePoint start) noexcept override;

 private:
    Output& output_;
};

}  // namespace trace
