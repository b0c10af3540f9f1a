// The table of all verbs.
#pragma once

#include <vector>

#include "tools/Verb.h"

namespace tools {

/// In the order in which the overview lists them.
std::vector<Verb> AllVerbs();

// Each is defined in the file of its name.
extern const Verb kHostVerb;
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
