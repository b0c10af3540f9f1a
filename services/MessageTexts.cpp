#include "services/MessageTexts.h"

#include <utility>

#include "kernel_api/Reader.h"
#include "runtime/Ports.h"
#include "services/modReg.h"

namespace services {

String GetLocalText(StringView defaultText, StringView textId) {
    return kernel_api::CurrentReader().GetText(defaultText, textId);
}

std::int32_t ShowMessage(StringView prompt, std::int32_t flags, std::optional<String> title) {
    const String shownTitle = title ? std::move(*title) : GetProductName();
    return runtime::CurrentPorts().messageBox.Show(prompt, flags, shownTitle);
}

}  // namespace services
