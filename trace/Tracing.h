// The trace of one process: what is put between the component and what it runs on, so that every event is written. Only
// the composition knows of it, and only when a trace is asked for.
#pragma once

#include <functional>
#include <memory>

#include "host/Composition.h"
#include "host/ServiceObject.h"
#include "runtime/Ports.h"
#include "trace/Output.h"
#include "trace/TracedDialogs.h"
#include "trace/TracedKernel.h"
#include "trace/TracedReader.h"
#include "trace/Watcher.h"

namespace trace {

class Tracing {
 public:
    /// `ports` and `kernel` must outlive it.
    Tracing(std::unique_ptr<Output> output, const runtime::Ports& ports, kernel_api::Kernel& kernel);
    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;
    ~Tracing();

    /// What the process is made with in the place of its own.
    const runtime::Ports& Ports() const { return ports_; }
    kernel_api::Kernel& Kernel() { return kernel_; }
    /// Traces reader, dialogs, forms and events of the composition that was made with both.
    void Watch(host::Composition& composition);

    using Make = std::function<std::unique_ptr<host::ServiceObject>(host::NotifyServerEvent notifyServer)>;
    /// The instance that `make` makes, traced.
    std::unique_ptr<host::ServiceObject> NewInstance(host::NotifyServerEvent notifyServer, const Make& make);

 private:
    const std::unique_ptr<Output> output_;
    TracedMessageBox messageBox_;
    TracedHelp help_;
    const runtime::Ports ports_;
    TracedKernel kernel_;
    std::unique_ptr<TracedReader> reader_;
    Watcher watcher_;
    int instances_ = 0;
};

}  // namespace trace
