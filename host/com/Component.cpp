#include "host/com/Component.h"

#include <utility>

#include "host/Composition.h"
#include "host/WindowsComposition.h"
#include "host/com/Module.h"
#include "runtime/Error.h"

namespace host::com {

std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer) {
    return NewServiceObject(OwnModule(), std::move(notifyServer));
}

std::size_t LiveWindows() noexcept {
    return LoadedWindowCount();
}

void GiveUpForms() noexcept {
    runtime::IgnoreErrors(AbandonForms);
}

}  // namespace host::com
