#include "tools/MessageService.h"

#include "host/Composition.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"

namespace tools {

void PrepareMessages() {
    host::EnsureComposed(GetModuleHandleW(nullptr));
    if (services::GetProductName().empty()) services::LoadProductIdentity();
    services::processValues.moduleName = services::GetProductName();
    services::processValues.moduleCaption = services::GetLocalText(u"Pelorix Background process ", u"LOC");
}

}  // namespace tools
