// Traces one process. Wraps the component's message box, help, kernel, reader, dialogs and instances, and writes the
// calls to the output. In the product, only WindowsComposition.cpp uses this class, and only if the environment
// requests a trace.
#pragma once

#include <functional>
#include <memory>

#include "host/Composition.h"
#include "host/ServiceObject.h"
#include "runtime/Ports.h"
#include "services/ProcessValues.h"
#include "trace/Output.h"
#include "trace/TracedDialogs.h"
#include "trace/TracedKernel.h"
#include "trace/TracedReader.h"
#include "trace/Watcher.h"

namespace trace {

class Tracing {
 public:
    /// `ports` and `kernel` must outlive the object.
    Tracing(std::unique_ptr<Output> output, const runtime::Ports& ports, kernel_api::Kernel& kernel);
    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;
    ~Tracing();

    /// The composition must use these ports and this kernel in place of the original ones.
    const runtime::Ports& Ports() const { return ports_; }
    kernel_api::Kernel& Kernel() { return kernel_; }
    /// Traces the reader, dialogs, forms and events of `composition`. The composition must have been made with Ports()
    /// and Kernel().
    void Watch(host::Composition& composition);

    using Make = std::function<std::unique_ptr<host::ServiceObject>(host::NotifyServerEvent notifyServer)>;
    /// Makes an instance with `make` and traces it.
    std::unique_ptr<host::ServiceObject> NewInstance(host::NotifyServerEvent notifyServer, const Make& make);

 private:
    const std::unique_ptr<Output> output_;
    TracedMessageBox messageBox_;
    TracedHelp help_;
    const runtime::Ports ports_;
    TracedKernel kernel_;
    std::unique_ptr<TracedReader> reader_;
    services::SuiteMessageBox suiteMessageBox_;
    services::SuiteQuery suiteQuery_;
    Watcher watcher_;
    int instances_ = 0;
};

}  // namespace trace
