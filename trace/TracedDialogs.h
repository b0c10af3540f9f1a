// Traces messages, questions and help. Writes a line when a message or question is shown and a line when it is
// answered. If the user cannot see an open message, the last trace line of the message's thread contains the message.
#pragma once

#include "runtime/HelpPort.h"
#include "runtime/MessageBoxPort.h"
#include "services/ProcessValues.h"
#include "trace/Line.h"

namespace trace {

class TracedMessageBox final : public runtime::MessageBoxPort {
 public:
    /// `output` and `box` must outlive the object.
    TracedMessageBox(Output& output, runtime::MessageBoxPort& box) : output_(output), box_(box) {}

    std::int32_t Show(StringView prompt, std::int32_t flags, StringView title,
                      const runtime::MessageHelp& help) override;

 private:
    Output& output_;
    runtime::MessageBoxPort& box_;
};

class TracedHelp final : public runtime::HelpPort {
 public:
    /// `output` and `help` must outlive the object.
    TracedHelp(Output& output, runtime::HelpPort& help) : output_(output), help_(help) {}

    void OpenContents(runtime::NativeHandle owner, StringView file) override;
    void CloseAll(runtime::NativeHandle owner) override;

 private:
    Output& output_;
    runtime::HelpPort& help_;
};

/// Returns a dialog function that also writes to the trace. The arguments must outlive the function. Copying the
/// function allocates no memory.
services::SuiteMessageBox Traced(Output& output, const services::SuiteMessageBox& box);
services::SuiteQuery Traced(Output& output, const services::SuiteQuery& query);

}  // namespace trace
