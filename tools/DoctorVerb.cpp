// Implements `backproc doctor`. The verb checks whether a client can create the component. If a client cannot, the verb
// prints the causes.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>

#include "tools/Apartment.h"
#include "tools/Diagnosis.h"
#include "tools/Display.h"
#include "tools/DoctorReport.h"
#include "tools/MachineLook.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc doctor [--report FILE]

Checks whether a program can create the component here and, if not, why. Prints one line for each thing that a client
needs: registration, name, file, version, proxies, kernel library, INI file, module list, language. A line begins with

  ok    nothing to do
  note  worth knowing, but clients work
  BAD   a client fails or gets a wrong result

and ends with advice if there is something to do. Without a registration, the component beside the tool is checked.
Nothing is changed, and no instance is created.

The component loads the first QmxKrn2K.dll that exists: beside itself, in the program's folder, in the system folder,
in 'dev' below its own folder. The program's folder is unknown here, so a kernel that is only in this tool's folder is
ignored.

  --report FILE  also writes a report for a support ticket: these lines, registry entries, shared strings, INI file

Exit code: 0 no BAD line, 1 a BAD line, or FILE cannot be written, 2 bad usage.

Example:
  backproc doctor --report ticket.txt
)";

std::optional<String> ReportFile(const Arguments& arguments) {
    if (arguments.empty()) return std::nullopt;
    if (!arguments[0].starts_with(u'-')) throw UnexpectedArgument(arguments[0]);
    if (arguments[0] != u"--report") throw UnknownOption(arguments[0]);
    const String& file = ValueOf(arguments, 0);
    RequireAtMost(2, arguments);
    return file;
}

void WriteReportFile(const String& name, const MachineState& machine, const std::vector<Finding>& findings) {
    std::ofstream file(std::filesystem::path(name), std::ios::binary);
    if (file) WriteReport(file, machine, findings);
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write the report " + Quoted(name) +
                                 "; give a file in a folder where you may write");
    }
}

int RunDoctor(const Arguments& arguments, Console& console) {
    const std::optional<String> report = ReportFile(arguments);
    const Apartment apartment;
    const MachineState machine = LookAtMachine();
    const std::vector<Finding> findings = Diagnose(machine);
    WriteFindings(console.out, findings);
    if (report) WriteReportFile(*report, machine, findings);
    const auto isBad = [](const Finding& finding) { return finding.grade == Grade::kBad; };
    return std::ranges::any_of(findings, isBad) ? kFailure : kSuccess;
}

}  // namespace

const Verb kDoctorVerb = {"doctor", "Checks whether a client can create the component, and if not, why", kHelp,
                          RunDoctor};

}  // namespace tools
