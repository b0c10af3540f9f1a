// Messages, questions and help with a line when each is shown and one when it is answered: a box that nobody sees is
// the last line of its thread.
#pragma once

#include "runtime/HelpPort.h"
#include "runtime/MessageBoxPort.h"
#include "services/ProcessValues.h"
#include "trace/Line.h"

namespace trace {

class TracedMessageBox final : public runtime::MessageBoxPort {
 public:
    /// Both must outlive it.
    TracedMessageBox(Output& output, runtime::MessageBoxPort& box) : output_(output), box_(box) {}

    std::int32_t Show(StringView prompt, std::int32_t flags, StringView title,
                      const runtime::MessageHelp& help) override;

 private:
    Output& output_;
    runtime::MessageBoxPort& box_;
};

class TracedHelp final : public runtime::HelpPort {
 public:
    /// Both must outlive it.
    TracedHelp(Output& output, runtime::HelpPort& help) : output_(output), help_(help) {}

    void OpenContents(runtime::NativeHandle owner, StringView file) override;
    void CloseAll(runtime::NativeHandle owner) override;

 private:
    Output& output_;
    runtime::HelpPort& help_;
};

/// The suite's dialogs, traced. `output` must outlive them.
services::SuiteMessageBox Traced(Output& output, services::SuiteMessageBox box);
services::SuiteQuery Traced(Output& output, services::SuiteQuery query);

}  // namespace trace
