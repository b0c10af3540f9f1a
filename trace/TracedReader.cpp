#include "trace/TracedReader.h"

namespace trace {
namespace {

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
    return WriteCall(
        output_, line, [&] { return reader_.GetSetting(application, key, defaultValue); },
        [&](Line& answered, const String& value) {
            answered.Text("value", value);
            try {
                answered.Text("source", NameOf(reader_.Find(application, key).source));
            } catch (const std::exception& error) {
                answered.Error(error);
            }
        });
}

String TracedReader::GetText(StringView defaultText, StringView textId) {
    Line line("text");
    line.Text("id", textId).Text("default", defaultText);
    return WriteCall(
        output_, line, [&] { return reader_.GetText(defaultText, textId); },
        [](Line& answered, const String& text) { answered.Text("shown", text); });
}

}  // namespace trace
