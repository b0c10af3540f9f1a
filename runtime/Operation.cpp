#include "runtime/Operation.h"

#include <utility>

#include "runtime/ProcessState.h"

namespace runtime {

Operation::Operation() {
    ++State().operations;
}

Operation::~Operation() {
    if (State().operations > 1) {
        --State().operations;
    } else {
        Abandon();
    }
}

bool Operation::KeepUntilEnd(std::function<void()> forget) {
    if (State().operations == 0) return false;
    State().forget.push_back(std::move(forget));
    return true;
}

void Operation::Abandon() {
    State().operations = 0;
    for (const auto& forget : std::exchange(State().forget, {})) forget();
}

}  // namespace runtime
