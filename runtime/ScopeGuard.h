// Runs an action at the end of a block, even if the block ends by an exception.
#pragma once

#include <utility>

namespace runtime {

/// `action` must not throw.
template <typename Action>
class ScopeGuard {
 public:
    explicit ScopeGuard(Action action) : action_(std::move(action)) {}
    ScopeGuard(const ScopeGuard&) = delete;
    ScopeGuard& operator=(const ScopeGuard&) = delete;
    ~ScopeGuard() { action_(); }

 private:
    Action action_;
};

/// Gives `variable` a value until the end of a scope. Then restores the former value.
template <typename Value>
[[nodiscard]] auto SetForScope(Value& variable, Value value) {
    return ScopeGuard([&variable, former = std::exchange(variable, std::move(value))] { variable = former; });
}

}  // namespace runtime
