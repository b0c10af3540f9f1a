// Lists all verbs of the tool.
#pragma once

#include <vector>

#include "tools/Verb.h"

namespace tools {

/// Returns all verbs in the order of the overview.
std::vector<Verb> AllVerbs();

// Each verb is defined in the file with its name, but kUnregisterVerb is defined in RegisterVerb.cpp.
extern const Verb kHostVerb;
extern const Verb kTraceVerb;
extern const Verb kStringsVerb;
extern const Verb kWhereVerb;
extern const Verb kTextsVerb;
extern const Verb kErrorVerb;
extern const Verb kMsgboxVerb;
extern const Verb kQueryVerb;
extern const Verb kRegisterVerb;
extern const Verb kUnregisterVerb;
extern const Verb kDoctorVerb;

}  // namespace tools
