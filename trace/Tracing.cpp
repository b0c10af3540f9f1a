#include "trace/Tracing.h"

#include <utility>

#include "host/Observer.h"
#include "kernel_api/Suite.h"
#include "services/ProcessValues.h"
#include "trace/TracedInstance.h"

namespace trace {

Tracing::Tracing(std::unique_ptr<Output> output, const runtime::Ports& ports, kernel_api::Kernel& kernel)
    : output_(std::move(output)),
      messageBox_(*output_, ports.messageBox),
      help_(*output_, ports.help),
      ports_{ports.windows, ports.settings, ports.files, ports.process, ports.locale, ports.fonts, messageBox_, help_},
      kernel_(*output_, kernel, ports.locale),
      watcher_(*output_) {}

Tracing::~Tracing() {
    host::UseObserver(nullptr);
}

void Tracing::Watch(host::Composition& composition) {
    reader_ = std::make_unique<TracedReader>(*output_, composition.Reader());
    kernel_api::CurrentSuite().reader = reader_.get();
    services::ProcessValues& values = services::Values();
    suiteMessageBox_ = std::exchange(values.suiteMessageBox, Traced(*output_, suiteMessageBox_));
    suiteQuery_ = std::exchange(values.suiteQuery, Traced(*output_, suiteQuery_));
    host::UseObserver(&watcher_);
}

std::unique_ptr<host::ServiceObject> Tracing::NewInstance(host::NotifyServerEvent notifyServer, const Make& make) {
    return std::make_unique<TracedInstance>(*output_, ++instances_, std::move(notifyServer), make);
}

}  // namespace trace
