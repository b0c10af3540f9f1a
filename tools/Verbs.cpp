// Contains the table of all verbs.
#include "tools/Verbs.h"

namespace tools {

std::vector<Verb> AllVerbs() {
    return {
        kHostVerb,   kTraceVerb, kStringsVerb,  kWhereVerb,      kTextsVerb,  kErrorVerb,
        kMsgboxVerb, kQueryVerb, kRegisterVerb, kUnregisterVerb, kDoctorVerb,
    };
}

}  // namespace tools
