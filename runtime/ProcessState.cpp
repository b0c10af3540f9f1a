#include "runtime/ProcessState.h"

#include "runtime/NeverDestroyed.h"

namespace runtime {

ProcessState& State() {
    static auto& state = NeverDestroyed<ProcessState>();
    return state;
}

}  // namespace runtime
