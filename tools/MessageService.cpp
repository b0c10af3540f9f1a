#include "tools/MessageService.h"

#include "host/Composition.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/LocalTexts.h"
#include "services/ProcessValues.h"
#include "services/QMXHLP.h"
#include "services/modReg.h"
#include "tools/LanguageFile.h"
#include "tools/UiFont.h"

namespace tools {

namespace {

/// This process takes its texts from `folder`. The language that the modules share does not change.
void UseLanguageOf(const runtime::String& folder) {
    const runtime::Ports& ports = runtime::CurrentPorts();
    LanguageFileIn(ports.files, folder);
    static kernel_api::builtin::BuiltInReader reader(ports.files, ports.settings, ports.locale);
    reader.UseLanguageFolder([folder] { return folder; });
    kernel_api::UseReader(&reader);
}

}  // namespace

void PrepareMessages(const std::optional<runtime::String>& languageFolder) {
    host::EnsureComposed(GetModuleHandleW(nullptr));
    if (languageFolder) UseLanguageOf(*languageFolder);
    ChooseFont();
    if (services::GetProductName().empty()) services::LoadProductIdentity();
    services::processValues.installFolder = services::GetInstallFolder();
    services::processValues.helpFilePath = services::HelpFileOfInstallation();
    services::processValues.moduleName = services::GetProductName();
    services::processValues.moduleCaption = services::GetLocalText(services::kModuleCaption);
}

}  // namespace tools
