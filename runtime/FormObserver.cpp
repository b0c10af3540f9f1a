#include "runtime/FormObserver.h"

#include "runtime/ProcessState.h"

namespace runtime {

FormObserver* CurrentFormObserver() noexcept {
    return State().formObserver;
}

void UseFormObserver(FormObserver* observer) noexcept {
    State().formObserver = observer;
}

}  // namespace runtime
