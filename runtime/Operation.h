// An operation is a part of the component's work during which each file and registry section is checked only once. What
// the first check found is used until the operation ends; the next operation checks again. No events are processed and
// no client is called during an operation.
#pragma once

#include <functional>

namespace runtime {

/// Lives on the stack. An operation inside another one is part of it.
class Operation {
 public:
    Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    ~Operation();

    /// Calls `forget` when the current operation ends. False if there is no operation: the caller must not keep what it
    /// found.
    static bool KeepUntilEnd(std::function<void()> forget);
    /// Ends all operations; for when the thread that started them has ended.
    static void Abandon();
};

}  // namespace runtime
