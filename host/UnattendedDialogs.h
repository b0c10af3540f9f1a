// Replaces the dialogs in a run without a user. Shows no dialog and answers each message and question at once: Cancel
// if the dialog has this button (see Show for the other boxes). The composition uses this class if an environment
// variable requests a run without a user. Use it only on the home thread.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "runtime/MessageBoxPort.h"
#include "runtime/Text.h"

namespace host {

class UnattendedDialogs : public runtime::MessageBoxPort {
 public:
    /// Receives one line for each answered dialog. The line has no line end.
    using Report = std::function<void(const runtime::String& line)>;

    explicit UnattendedDialogs(Report report) : report_(std::move(report)) {}

    /// Replaces the suite's dialogs of the process. Call this after the process was composed. This object must outlive
    /// the composition.
    void ReplaceSuiteDialogs();

    /// Replaces the system's message box. Answers Cancel if the box has a Cancel button, otherwise OK, No or Abort.
    /// Raises error 5 if `flags` select a set of buttons that does not exist.
    std::int32_t Show(runtime::StringView prompt, std::int32_t flags, runtime::StringView title,
                      const runtime::MessageHelp& help) override;

 private:
    std::int32_t AnswerSuiteBox(runtime::StringView prompt, runtime::StringView title) const;
    runtime::String AnswerQuery(const runtime::String& title, const runtime::String& prompt,
                                std::vector<runtime::String>& values, std::int32_t kind, std::int32_t& index) const;
    void ReportAnswer(runtime::StringView dialog, runtime::StringView answer, runtime::StringView title,
                      runtime::StringView prompt) const;

    Report report_;
};

}  // namespace host
