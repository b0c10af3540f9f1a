// Traces an instance. Writes lines for its creation, its client's calls, its events and its release.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "host/ServiceObject.h"
#include "trace/Line.h"

namespace trace {

class TracedInstance final : public host::ServiceObject {
 public:
    using Make = std::function<std::unique_ptr<host::ServiceObject>(host::NotifyServerEvent notifyServer)>;

    /// Makes the instance. `number` identifies the instance in the lines. Throws the errors of `make`. `output` must
    /// outlive the object.
    TracedInstance(Output& output, int number, host::NotifyServerEvent notifyServer, const Make& make);

    void Terminate() override;
    bool Load(std::int16_t iMode) override;
    void NotifyMe(StringView Aname, StringView sCommand) override;
    String SeverPath() override;
    void SetSeverPath(StringView value) override;
    void AP_SendCmd(String module, String command) override;
    void AP_SendCmdAll(String command) override;
    void AP_Shell(String module, std::int16_t mode, StringView commandLine) override;
    // The diagnostics properties write no line, because reading them changes nothing.
    String CurrentDesignName() override { return instance_->CurrentDesignName(); }
    String LanguagePath() override { return instance_->LanguagePath(); }
    std::optional<String> Caption() override { return instance_->Caption(); }

 private:
    /// Starts a line about this instance.
    Line About(std::string_view event) const;
    template <typename Call>
    void Write(const Line& begin, std::string_view end, Call&& call);

    Output& output_;
    const int number_;
    std::unique_ptr<host::ServiceObject> instance_;
};

}  // namespace trace
