// An operation is a part of the component's work. During an operation, each file and registry section is checked only
// once. The result of the first check is used until the operation ends. The next operation checks again. During an
// operation, no events are processed and no client is called.
#pragma once

#include <functional>

namespace runtime {

/// Create it on the stack. An operation inside another operation is part of the outer operation.
class Operation {
 public:
    Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    ~Operation();

    /// Calls `forget` when the current operation ends. Returns false if there is no operation. The caller must then not
    /// keep the result of its check.
    static bool KeepUntilEnd(std::function<void()> forget);
    /// Ends all operations. Call it when the thread that started the operations has ended.
    static void Abandon();
};

}  // namespace runtime
