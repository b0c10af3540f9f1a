// Writes everything that a support ticket about the component needs into one text.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/Diagnosis.h"

namespace tools {

/// Writes one line for each finding: "ok", "note" or "BAD", the subject, what was found, and after a semicolon the
/// advice.
void WriteFindings(std::ostream& out, const std::vector<Finding>& findings);

/// Writes the findings, the registry entries for the user and for the machine, the suite's shared strings and the INI
/// file.
void WriteReport(std::ostream& out, const MachineState& machine, const std::vector<Finding>& findings);

}  // namespace tools
