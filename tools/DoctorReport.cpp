#include "tools/DoctorReport.h"

#include <ostream>

#include "kernel_api/builtin/IniText.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"
#include "tools/ClientView.h"
#include "tools/Display.h"
#include "tools/Registration.h"
#include "tools/SharedStrings.h"

namespace tools {

namespace {

std::string_view WordFor(Grade grade) {
    switch (grade) {
        case Grade::kNote:
            return "note ";
        case Grade::kBad:
            return "BAD  ";
        case Grade::kOk:
            break;
    }
    return "ok   ";
}

void WriteHeading(std::ostream& out, std::string_view heading) {
    out << '\n' << heading << '\n' << std::string(heading.size(), '-') << '\n';
}

std::string Now() {
    SYSTEMTIME time{};
    GetSystemTime(&time);
    char text[sizeof "65535-65535-65535 65535:65535 UTC"];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u UTC", time.wYear, time.wMonth, time.wDay, time.wHour,
                  time.wMinute);
    return text;
}

void WriteRegistry(std::ostream& out) {
    for (const Scope scope : {Scope::kUser, Scope::kMachine}) {
        for (const RegistryValue& value : RegisteredValues(scope)) {
            out << RegistryPlace(scope) << '\\' << Display(value.key) << " \"" << Display(value.name) << "\"=["
                << Display(value.text) << "]\n";
        }
    }
}

void WriteStrings(std::ostream& out, const String& componentFolder) try {
    for (const auto& [key, value] : SharedStrings(MakeKernelOfClients(componentFolder)).All()) {
        out << Display(key) << "=[" << Display(value) << "]\n";
    }
} catch (const std::exception& error) {
    out << error.what() << '\n';
}

void WriteIni(std::ostream& out, const IniFile& ini) {
    const auto bytes = runtime::win32::Win32Files().Read(ini.path);
    if (!bytes) {
        out << Display(ini.path) << " cannot be read, or is not there\n";
        return;
    }
    runtime::win32::Win32Locale locale;
    out << runtime::ToUtf8(kernel_api::builtin::DecodeIni(*bytes, locale)) << '\n';
}

}  // namespace

void WriteFindings(std::ostream& out, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        out << WordFor(finding.grade) << finding.subject << ": " << finding.what;
        if (!finding.advice.empty()) out << "; " << finding.advice;
        out << '\n';
    }
}

void WriteReport(std::ostream& out, const MachineState& machine, const std::vector<Finding>& findings) {
    out << "backproc doctor " << machine.tool.fullVersion << ", " << Now() << '\n';
    WriteHeading(out, "Findings");
    WriteFindings(out, findings);
    WriteHeading(out, "Registry");
    WriteRegistry(out);
    WriteHeading(out, "Shared strings");
    WriteStrings(out, runtime::win32::FolderOf(machine.component.path));
    WriteHeading(out, "INI file");
    WriteIni(out, machine.ini);
}

}  // namespace tools
