#include "runtime/headless/MemorySettings.h"

#include "runtime/Error.h"
#include "runtime/headless/LetterCase.h"

namespace runtime::headless {
namespace {

bool IsName(StringView name) {
    return !name.empty() && name.find(u'\0') == StringView::npos;
}

}  // namespace

std::optional<String> MemorySettings::Get(StringView application, StringView section, StringView key) {
    const auto found = values_.find(FoldedName(application, section, key));
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

void MemorySettings::Save(StringView application, StringView section, StringView key, StringView value) {
    if (refuses_ || !IsName(application) || !IsName(section) || !IsName(key)) throw Error(kInvalidProcedureCall);
    values_[FoldedName(application, section, key)] = value;
    saved_.push_back({String(application), String(section), String(key), String(value)});
}

MemorySettings::Name MemorySettings::FoldedName(StringView application, StringView section, StringView key) {
    return {UpperCase(application), UpperCase(section), UpperCase(key)};
}

}  // namespace runtime::headless
