// Writes the findings of `backproc doctor`, and its report for a support ticket.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/Diagnosis.h"

namespace tools {

/// Writes one line for each finding. A line has "ok", "note" or "BAD", the subject and the finding. If there is advice,
/// it follows a semicolon.
void WriteFindings(std::ostream& out, const std::vector<Finding>& findings);

/// Writes the findings, the registry entries for the user and for the machine, the suite's shared strings and the INI
/// file.
void WriteReport(std::ostream& out, const MachineState& machine, const std::vector<Finding>& findings);

}  // namespace tools
