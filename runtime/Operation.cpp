#include "runtime/Operation.h"

#include <utility>
#include <vector>

#include "runtime/NeverDestroyed.h"

namespace runtime {
namespace {

struct RunningOperation {
    int depth = 0;
    std::vector<std::function<void()>> forget;
};

RunningOperation& Running() {
    static auto& running = NeverDestroyed<RunningOperation>();
    return running;
}

}  // namespace

Operation::Operation() {
    ++Running().depth;
}

Operation::~Operation() {
    if (Running().depth > 1) {
        --Running().depth;
    } else {
        Abandon();
    }
}

bool Operation::KeepUntilEnd(std::function<void()> forget) {
    if (Running().depth == 0) return false;
    Running().forget.push_back(std::move(forget));
    return true;
}

void Operation::Abandon() {
    Running().depth = 0;
    for (const auto& forget : std::exchange(Running().forget, {})) forget();
}

}  // namespace runtime
