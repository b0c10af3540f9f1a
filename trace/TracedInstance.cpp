#include "trace/TracedInstance.h"

#include <array>

#include "kernel_api/CommaFields.h"

namespace trace {
namespace {

/// Returns the first two fields of a command: the addressee and the verb.
std::array<StringView, 2> BeginningOf(StringView command) {
    std::array<StringView, 2> begin;
    kernel_api::CommaFields fields(command);
    for (StringView& field : begin) {
        if (!fields.AtEnd()) field = fields.Take().text;
    }
    return begin;
}

void AddNothing(Line& /*line*/, bool /*done*/) {}

}  // namespace

TracedInstance::TracedInstance(Output& output, int number, host::NotifyServerEvent notifyServer, const Make& make)
    : output_(output), number_(number) {
    auto traced = [this, event = std::move(notifyServer)](String& Aname, String& sCommand) {
        About("NotifyServer").Text("module", Aname).Text("command", sCommand).WriteTo(output_);
        event(Aname, sCommand);
    };
    Write(About("create"), "created", [&] { instance_ = make(std::move(traced)); });
}

Line TracedInstance::About(std::string_view event) const {
    Line line(event);
    line.Number("instance", number_);
    return line;
}

/// Writes `begin` and runs `call`. Then writes a line with the event `end`, the error if the call failed, and the
/// duration of the call.
template <typename Call>
void TracedInstance::Write(const Line& begin, std::string_view end, Call&& call) {
    begin.WriteTo(output_);
    WriteCall(
        output_, About(end),
        [&call] {
            call();
            return true;
        },
        AddNothing);
}

void TracedInstance::Terminate() {
    Write(About("release"), "released", [this] { instance_->Terminate(); });
}

bool TracedInstance::Load(std::int16_t iMode) {
    About("Load").Number("mode", iMode).WriteTo(output_);
    return WriteCall(
        output_, About("Load done"), [&] { return instance_->Load(iMode); },
        [](Line& line, bool result) { line.Text("result", result ? u"True" : u"False"); });
}

void TracedInstance::NotifyMe(StringView Aname, StringView sCommand) {
    const auto [addressee, verb] = BeginningOf(sCommand);
    Line line = About("NotifyMe");
    line.Text("name", Aname).Text("command", sCommand).Text("addressee", addressee).Text("verb", verb);
    Write(line, "NotifyMe done", [&] { instance_->NotifyMe(Aname, sCommand); });
}

String TracedInstance::SeverPath() {
    About("SeverPath read").WriteTo(output_);
    return instance_->SeverPath();
}

void TracedInstance::SetSeverPath(StringView value) {
    About("SeverPath put").Text("value", value).WriteTo(output_);
    instance_->SetSeverPath(value);
}

void TracedInstance::AP_SendCmd(String module, String command) {
    Line line = About("AP_SendCmd");
    line.Text("module", module).Text("command", command);
    Write(line, "AP_SendCmd done", [&] { instance_->AP_SendCmd(std::move(module), std::move(command)); });
}

void TracedInstance::AP_SendCmdAll(String command) {
    Line line = About("AP_SendCmdAll");
    line.Text("command", command);
    Write(line, "AP_SendCmdAll done", [&] { instance_->AP_SendCmdAll(std::move(command)); });
}

void TracedInstance::AP_Shell(String module, std::int16_t mode, StringView commandLine) {
    Line line = About("AP_Shell");
    line.Text("module", module).Number("mode", mode).Text("command line", commandLine);
    Write(line, "AP_Shell done", [&] { instance_->AP_Shell(std::move(module), mode, commandLine); });
}

}  // namespace trace
