// Implements the system's message box in memory. It records each message and returns the button codes that the test has
// set. A message for which no button code is left raises error 51.
#pragma once

#include <deque>
#include <vector>

#include "runtime/Error.h"
#include "runtime/MessageBoxPort.h"

namespace runtime::headless {

class ScriptedMessageBox : public MessageBoxPort {
 public:
    struct Message {
        String prompt;
        std::int32_t flags;
        String title;
        MessageHelp help = {};
        bool operator==(const Message&) const = default;
    };

    std::int32_t Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) override {
        shown.push_back({String(prompt), flags, String(title), help});
        if (answers.empty()) throw Error(kInternalError, u"unexpected message box: " + String(prompt));
        const std::int32_t answer = answers.front();
        answers.pop_front();
        return answer;
    }

    /// The button codes for the next messages.
    std::deque<std::int32_t> answers;
    std::vector<Message> shown;
};

}  // namespace runtime::headless
