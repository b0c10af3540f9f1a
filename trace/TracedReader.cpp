#include "trace/TracedReader.h"

#include <utility>

namespace trace {
namespace {

using kernel_api::builtin::FoundSetting;
using kernel_api::builtin::SettingSource;

StringView NameOf(SettingSource source) {
    switch (source) {
        case SettingSource::IniFile:
            return u"INI file";
        case SettingSource::Registry:
            return u"registry";
        case SettingSource::None:
            break;
    }
    return u"default";
}

}  // namespace

void TracedReader::NormaliseFolder(String& folder) {
    reader_.NormaliseFolder(folder);
    Line("system folder").Text("folder", folder).WriteTo(output_);
}

String TracedReader::GetSetting(StringView application, StringView key, StringView defaultValue) {
    Line line("setting");
    line.Text("application", application).Text("key", key);
    const auto read = [&] {
        FoundSetting found = reader_.Find(application, key);
        if (found.source == SettingSource::None) found.value = defaultValue;
        return found;
    };
    return WriteCall(output_, std::move(line), read,
                     [](Line& answered, const FoundSetting& found) {
                         answered.Text("value", found.value).Text("source", NameOf(found.source));
                     })
        .value;
}

String TracedReader::GetText(StringView defaultText, StringView textId) {
    Line line("text");
    line.Text("id", textId).Text("default", defaultText);
    return WriteCall(
        output_, std::move(line), [&] { return reader_.GetText(defaultText, textId); },
        [](Line& answered, const String& text) { answered.Text("shown", text); });
}

}  // namespace trace
