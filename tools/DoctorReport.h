// Everything that a ticket about the component needs, in one text.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/Diagnosis.h"

namespace tools {

/// One finding a line: "ok", "note" or "BAD", subject, what was found, and after a semicolon what to do.
void WriteFindings(std::ostream& out, const std::vector<Finding>& findings);

/// The findings, the registry's entries of both hives, the shared strings of the suite, the INI file.
void WriteReport(std::ostream& out, const MachineState& machine, const std::vector<Finding>& findings);

}  // namespace tools
