// The component as the edge sees it: the service object of host, behind the edge's interface.
#include "host/Composition.h"
#include "host/ProcessLife.h"
#include "host/clsQmxBackProcess.h"
#include "host/com/Module.h"
#include "host/com/ServiceObject.h"
#include "runtime/Error.h"

namespace host::com {
namespace {

class HostedServiceObject final : public ServiceObject {
 public:
    explicit HostedServiceObject(NotifyServerEvent notifyServer) : object_(std::move(notifyServer)) {}

    void Terminate() override { object_.Terminate(); }
    bool Load(std::int16_t& iMode) override { return object_.Load(iMode); }
    void NotifyMe(TextInOut& Aname, TextInOut& sCommand) override { object_.NotifyMe(Aname.Given(), sCommand.Given()); }
    String SeverPath() override { return object_.SeverPath(); }
    void SetSeverPath(StringView value) override { object_.SetSeverPath(value); }

 private:
    clsQmxBackProcess object_;
};

}  // namespace

std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer) {
    EnsureComposed(OwnModule());
    return std::make_unique<HostedServiceObject>(std::move(notifyServer));
}

std::size_t LiveWindows() noexcept {
    return LoadedWindowCount();
}

void GiveUpForms() noexcept {
    runtime::SkipError(ForgetForms);
}

}  // namespace host::com
