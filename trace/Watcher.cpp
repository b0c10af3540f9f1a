#include "trace/Watcher.h"

#include "runtime/Form.h"

namespace trace {
namespace {

void WriteForm(Output& output, std::string_view event, const runtime::Form& form) {
    Line(event).Text("form", form.Name()).WriteTo(output);
}

}  // namespace

void Watcher::Loading(const runtime::Form& form) noexcept {
    WriteForm(output_, "form loading", form);
}

void Watcher::Loaded(const runtime::Form& form) noexcept {
    WriteForm(output_, "form loaded", form);
}

void Watcher::NotLoaded(const runtime::Form& form, const std::exception_ptr& error) noexcept {
    Line("form not loaded").Text("form", form.Name()).Error(error).WriteTo(output_);
}

void Watcher::Unloading(const runtime::Form& form) noexcept {
    WriteForm(output_, "form unloading", form);
}

void Watcher::UnloadRefused(const runtime::Form& form) noexcept {
    WriteForm(output_, "form unload refused", form);
}

void Watcher::Unloaded(const runtime::Form& form) noexcept {
    WriteForm(output_, "form unloaded", form);
}

void Watcher::ErrorIgnored(const std::exception& error) noexcept {
    Line("error skipped").Error(error).WriteTo(output_);
}

void Watcher::LoadShutDown(const std::exception& error) noexcept {
    Line("load shut down").Error(error).WriteTo(output_);
}

void Watcher::CommandFailed(const std::exception_ptr& error) noexcept {
    Line("command failed").Error(error).WriteTo(output_);
}

Watcher::TimePoint Watcher::SinkCalled(std::uint32_t connection, StringView Aname, StringView sCommand) noexcept {
    Line("sink called")
        .Number("connection", connection)
        .Text("module", Aname)
        .Text("command", sCommand)
        .WriteTo(output_);
    return TimePoint::clock::now();
}

void Watcher::SinkAnswered(std::uint32_t connection, std::uint32_t result, TimePoint start) noexcept {
    const auto time = TimePoint::clock::now() - start;
    Line("sink answered").Number("connection", connection).Hex("result", result).Time(time).WriteTo(output_);
}

}  // namespace trace
