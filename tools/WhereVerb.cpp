// `backproc where`: the folders and names that a client would get now, and where each comes from.
#include <ostream>

#include "host/Composition.h"
#include "host/HostCommandLine.h"
#include "kernel_api/dev/BuiltInReader.h"
#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/modReg.h"
#include "tools/Display.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

using kernel_api::dev::BuiltInReader;
using kernel_api::dev::FoundSetting;
using kernel_api::dev::SettingSource;

constexpr std::string_view kHelp =
    R"(Usage: backproc where ["/sys:FOLDER" | "FILE"]

Shows what a client that starts now with this argument would get: install folder, system folder, start file, INI
file, the four folders and six identity values of the suite, one NAME=[VALUE] a line, followed by where the value
comes from: 'command line', 'INI file', 'registry' or 'default'. Nothing is published.

  "/sys:FOLDER"  FOLDER as the system folder; a message box tells when it cannot be used
  "FILE"         an existing file, as the start file

As on a module's command line, the argument counts only in double quotes. A module takes up to two of them; here the
verb is the first.

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc where "/sys:C:\Windows"
)";

void Show(Console& console, std::string_view name, const String& value, std::string_view source) {
    console.out << name << "=[" << Display(value) << "] " << source << '\n';
}

std::string_view NameOf(SettingSource source) {
    switch (source) {
        case SettingSource::IniFile:
            return "INI file";
        case SettingSource::Registry:
            return "registry";
        case SettingSource::None:
            break;
    }
    return "default";
}

void ShowSettings(Console& console, BuiltInReader& reader, std::span<const services::SuiteSetting> settings) {
    for (const services::SuiteSetting& setting : settings) {
        const FoundSetting found = reader.Find(services::kSettingsApplication, setting.key);
        const bool isDefault = found.source == SettingSource::None;
        Show(console, runtime::ToUtf8(setting.meaning), isDefault ? services::DefaultOf(setting) : found.value,
             NameOf(found.source));
    }
}

int RunWhere(const Arguments& arguments, Console& console) {
    AtMost(1, arguments);
    host::EnsureComposed(GetModuleHandleW(nullptr));
    const runtime::Ports& ports = runtime::CurrentPorts();
    if (!arguments.empty() && ports.process.CommandLine().find(u'"') == String::npos) {
        console.err << "backproc where: " << Quoted(arguments[0]) << " does not count: it is not in double quotes\n";
    }
    const String installFolder = services::GetInstallFolder();
    host::HostCommandLine given = host::ReadHostCommandLine();
    const bool isBeside = given.systemFolder == installFolder + u"\\sys";
    BuiltInReader reader(ports.files, ports.settings, ports.locale);
    reader.NormaliseFolder(given.systemFolder);
    const String iniFile = given.systemFolder + u"MARLENTO.INI";

    Show(console, "install folder", installFolder, "component");
    Show(console, "system folder", given.systemFolder, isBeside ? "default" : "command line");
    Show(console, "start file", given.startFile, given.startFile.empty() ? "none" : "command line");
    Show(console, "INI file", iniFile, ports.files.Stamp(iniFile) ? "there" : "missing");
    ShowSettings(console, reader, services::FolderSettings());
    ShowSettings(console, reader, services::IdentitySettings());
    return kSuccess;
}

}  // namespace

const Verb kWhereVerb = {"where", "Shows the folders and names that a client would get", kHelp, RunWhere};

}  // namespace tools
