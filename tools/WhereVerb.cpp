// Implements `backproc where`. The verb shows the folders and names that a client would get now, and the source of each
// value.
#include <algorithm>
#include <ostream>

#include "host/HostCommandLine.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "runtime/Error.h"
#include "runtime/Ports.h"
#include "runtime/win32/Win32Locale.h"
#include "services/modReg.h"
#include "tools/ClientView.h"
#include "tools/Display.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

using kernel_api::builtin::BuiltInReader;
using kernel_api::builtin::FoundSetting;
using kernel_api::builtin::SettingSource;

constexpr std::string_view kHelp =
    R"(Usage: backproc where ["/sys:FOLDER" | "FILE"]

Shows the values that a client would get if it started now with this argument: component, kernel library, install
folder, system folder, start file, INI file, and the suite's four folders and six identity values. Each line is
NAME=[VALUE], followed by the source of the value: 'command line', 'INI file', 'registry' or 'default'. Nothing is
published.

The component is the registered one; without a registration, the copy beside this tool. If the kernel's ANSI code page
changes a value, the changed value is shown. Without a kernel, the product's name in the default folders is unknown and
shown as '?'.

  "/sys:FOLDER"  sets the system folder; a message box reports a folder that cannot be used
  "FILE"         sets the start file, which must exist

As on a module's command line, the argument must be in double quotes. A module reads up to two arguments; here the
verb is the first of them.

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

/// Returns the setting's default. If the default contains the product's name and there is no kernel, the name is '?'.
String DefaultWithOrWithoutKernel(const services::SuiteSetting& setting, bool hasKernel) {
    if (hasKernel || !setting.isProductFolder) return services::DefaultOf(setting);
    return u"C:\\?" + String(setting.defaultText);
}

/// True if the component stores the setting's value in a shared string. The kernel converts shared strings to the ANSI
/// code page.
bool IsPublished(const services::SuiteSetting& setting) {
    constexpr StringView kPublished[] = {u"JobDir", u"LibDir", u"SysName", u"Maker", u"Copyright"};
    return std::ranges::find(kPublished, setting.key) != std::end(kPublished);
}

void ShowSettings(Console& console, BuiltInReader& reader, std::span<const services::SuiteSetting> settings,
                  bool hasKernel) {
    runtime::win32::Win32Locale locale;
    for (const services::SuiteSetting& setting : settings) {
        const FoundSetting found = reader.Find(services::kSettingsApplication, setting.key);
        const String value =
            found.source == SettingSource::None ? DefaultWithOrWithoutKernel(setting, hasKernel) : found.value;
        const String taken = IsPublished(setting) ? locale.FromAnsi(locale.ToAnsi(value)) : value;
        const std::string source(NameOf(found.source));
        Show(console, runtime::ToUtf8(setting.meaning), taken,
             taken == value ? source : source + ", changed by the ANSI code page");
    }
}

/// Returns the reason why clients have no complete kernel. Returns "" if they have a complete kernel.
std::string KernelFailure() try {
    services::GetProductName();
    return "";
} catch (const runtime::Error& error) {
    return error.what();
}

void ShowKernel(Console& console, const String& componentFolder, const std::string& failure) {
    if (!failure.empty()) {
        Show(console, "kernel", u"", failure);
        return;
    }
    constexpr std::string_view kPlaces[] = {"asked for", "beside the component", "program's folder", "system folder",
                                            "development kernel"};
    const auto kernel = KernelOfClients(componentFolder);
    if (kernel) Show(console, "kernel", kernel->path, kPlaces[static_cast<std::size_t>(kernel->place)]);
}

int RunWhere(const Arguments& arguments, Console& console) {
    RequireAtMost(1, arguments);
    const ComponentInForce component = ComposeAsClient("where", console.err);
    const std::string kernelFailure = KernelFailure();
    const runtime::Ports& ports = runtime::CurrentPorts();
    if (!arguments.empty() && ports.process.CommandLine().find(u'"') == String::npos) {
        console.err << "backproc where: " << Quoted(arguments[0]) << " is ignored: it is not in double quotes\n";
    }
    const String installFolder = services::GetInstallFolder();
    host::HostCommandLine given = host::ReadHostCommandLine();
    const bool isBeside = given.systemFolder == installFolder + u"\\sys";
    BuiltInReader reader(ports.files, ports.settings, ports.locale);
    reader.NormaliseFolder(given.systemFolder);
    const String iniFile = given.systemFolder + String(kernel_api::kIniFileName);

    Show(console, "component", component.library, ScopeInWords(component));
    ShowKernel(console, installFolder, kernelFailure);
    Show(console, "install folder", installFolder, "component");
    Show(console, "system folder", given.systemFolder, isBeside ? "default" : "command line");
    Show(console, "start file", given.startFile, given.startFile.empty() ? "none" : "command line");
    Show(console, "INI file", iniFile, ports.files.Stamp(iniFile) ? "there" : "missing");
    ShowSettings(console, reader, services::FolderSettings(), kernelFailure.empty());
    ShowSettings(console, reader, services::IdentitySettings(), kernelFailure.empty());
    return kSuccess;
}

}  // namespace

const Verb kWhereVerb = {"where", "Shows the folders and names that a client would get", kHelp, RunWhere};

}  // namespace tools
