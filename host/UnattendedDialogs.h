// The dialogs of a run without a user. Each message and question is answered at once, as Escape would answer it, and
// nothing is shown. The composition puts this object in the place of the dialogs when the environment asks for it.
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

    /// Replaces the suite's dialogs of the composed process, which this object must outlive.
    void ReplaceSuiteDialogs();

    /// The system's message box: Cancel if it has that button, else OK, No or Abort. Error 5 for a set of buttons that
    /// no box has.
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
