// `backproc doctor`: checks whether a client can create the component, and if not, why.
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

Shows what a program of the suite would get here that creates the component, one line for each thing that it needs:
registration, name, file, version, proxies, kernel library, INI file, module list, language. Each line begins with

  ok    all is well
  note  worth knowing, but no client fails for it
  BAD   a client fails, or gets something else than was meant

and ends with what to do. Without a registration the file beside the tool is looked at. Nothing is changed, and no
instance is created.

The component takes the first QmxKrn2K.dll that exists: beside itself, in the program's folder, in the system folder,
in 'dev' below its own folder. The program's folder is not known here, so a kernel that is only beside this tool does
not count.

  --report FILE  also writes FILE for a ticket: the same lines, the registry's entries, the shared strings, the INI file

Exit code: 0 there is no BAD line, 1 there is one, or FILE cannot be written, 2 bad usage.

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

const Verb kDoctorVerb = {"doctor", "Checks whether a client would get the component, and why not", kHelp, RunDoctor};

}  // namespace tools
