// Runs an action at the end of a block, however the block is left.
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

/// Gives `variable` a value for the time of a scope; then it has its former one again.
template <typename Value>
[[nodiscard]] auto SetForScope(Value& variable, Value value) {
    return ScopeGuard([&variable, former = std::exchange(variable, std::move(value))] { variable = former; });
}

}  // namespace runtime
