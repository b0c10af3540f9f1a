// An operation is a part of the component's work. Within an operation, code may reuse the result of a check, such as
// the check whether a file has changed. The next operation checks again. Code in an operation must not process events
// or call a client.
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

    /// Calls `forget` when the outermost operation ends. Returns false if there is no operation. In that case, the
    /// caller must not keep the result of its check.
    static bool KeepUntilEnd(std::function<void()> forget);
    /// Ends all operations. Call it when the thread that started the operations has ended.
    static void Abandon();
};

}  // namespace runtime
