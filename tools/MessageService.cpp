#include "tools/MessageService.h"

#include "host/WindowsComposition.h"
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

/// Sets the folder from which this process reads its texts. The shared string LANGUAGEPATH does not change.
void UseLanguageOf(host::Composition& composition, const runtime::String& folder) {
    LanguageFileIn(runtime::CurrentPorts().files, folder);
    composition.Reader().UseLanguageFolder([folder] { return folder; });
}

}  // namespace

void PrepareMessages(const std::optional<runtime::String>& languageFolder) {
    host::Composition& composition = host::EnsureComposed(GetModuleHandleW(nullptr));
    if (languageFolder) UseLanguageOf(composition, *languageFolder);
    ChooseFont();
    if (services::GetProductName().empty()) services::LoadProductIdentity();
    services::Values().installFolder = services::GetInstallFolder();
    services::Values().helpFilePath = services::HelpFileOfInstallation();
    services::Values().moduleName = services::GetProductName();
    services::Values().moduleCaption = services::GetLocalText(services::kModuleCaption);
}

}  // namespace tools
