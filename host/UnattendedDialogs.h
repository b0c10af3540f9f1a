// Replaces the dialogs in a run without a user. Each message and question is answered at once, with the answer of the
// Escape key, and no dialog is shown. The composition uses this class if an environment variable requests it. Home
// thread only.
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
    /// Receives one line, without a line end, for each answer.
    using Report = std::function<void(const runtime::String& line)>;

    explicit UnattendedDialogs(Report report) : report_(std::move(report)) {}

    /// Replaces the suite's dialogs of the process, which must be composed. This object must outlive the composition.
    void ReplaceSuiteDialogs();

    /// Replaces the system's message box. The answer is Cancel if the box has that button, else OK, No or Abort. Error
    /// 5 for a set of buttons that no box has.
    std::int32_t Show(runtime::StringView prompt, std::int32_t flags, runtime::StringView title,
                      const runtime::MessageHelp& help) override;

 private:
    std::int32_t AnswerSuiteBox(runtime::StringView prompt, runtime::StringView title) const;
    runtime::String AnswerQuery(const runtime::String& title, const runtime::String& prompt,
                                std::vector<runtime::String>& values, std::int32_t kind, std::int32_t& index) const;
    void Note(runtime::StringView dialog, runtime::StringView answer, runtime::StringView title,
              runtime::StringView prompt) const;

    Report report_;
};

}  // namespace host
