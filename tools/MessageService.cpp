#include "tools/MessageService.h"

#include "host/Composition.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/LocalTexts.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"

namespace tools {

void PrepareMessages() {
    host::EnsureComposed(GetModuleHandleW(nullptr));
    if (services::GetProductName().empty()) services::LoadProductIdentity();
    services::processValues.moduleName = services::GetProductName();
    services::processValues.moduleCaption = services::GetLocalText(services::kModuleCaption);
}

}  // namespace tools
