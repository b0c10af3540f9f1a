#include "routing/ModuleList.h"

#include <cstddef>

#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "routing/FieldSplitter.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/LoadedForms.h"
#include "runtime/Numbers.h"
#include "runtime/Ports.h"
#include "services/ProcessValues.h"

namespace routing {
namespace {

using runtime::Str;
using runtime::String;

// Two numbers of the published state. No module uses them.
constexpr std::int32_t kSpareA = 0;
constexpr std::int32_t kSpareB = 0;

/// Resets the list to `count` empty names.
void StartModuleNames(std::int32_t count) {
    ModuleNames().assign(static_cast<std::size_t>(count) + 1, String());
    ModuleCount() = count;
    OwnModuleIndex() = 0;
}

String StateRecord(std::int32_t extra) {
    const auto& form = services::Values().forms.main;
    if (!form) throw runtime::Error(runtime::kObjectVariableNotSet);
    const auto state = static_cast<std::int32_t>(form->State());
    return form->Caption() + u"," + Str(state) + u"," + Str(kSpareA) + u"," + Str(extra) + u"," + Str(kSpareB);
}

}  // namespace

void ReadModuleList() {
    StartModuleNames(0);
    InterModuleMessage() = runtime::CurrentPorts().windows.RegisterMessage(u"PELORIX");
    const kernel_api::TextPointer list = kernel_api::CurrentKernel().E_GetString(u"AllAps");
    if (list <= 0) return;
    const String text = kernel_api::CurrentReader().TextAt(list);
    if (text.empty()) return;
    SplitFields(text);
    StartModuleNames(runtime::ToInt32(FieldValue(0)));
    for (std::int32_t i = 1; i <= ModuleCount(); ++i) {
        String& name = ModuleNames()[static_cast<std::size_t>(i)];
        name = FieldText(i);
        if (name == services::kOwnModuleName) OwnModuleIndex() = i;
    }
}

void PublishModuleState(std::int32_t active, std::int32_t extra) {
    String record = active == 0 ? String() : StateRecord(extra);
    kernel_api::CurrentKernel().E_SetString(services::kOwnModuleName, record);
}

bool IsFormShown(runtime::Form& form) {
    const auto& forms = runtime::LoadedForms();
    for (std::size_t i = 0; i < forms.Count(); ++i) {
        if (&forms.At(i) == &form && form.Visible()) return true;
    }
    return false;
}

}  // namespace routing
