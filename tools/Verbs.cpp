// The verbs that the tool has.
#include "tools/Verbs.h"

namespace tools {

std::vector<Verb> AllVerbs() {
    return {
        kHostVerb,   kStringsVerb, kWhereVerb,    kTextsVerb,      kErrorVerb,
        kMsgboxVerb, kQueryVerb,   kRegisterVerb, kUnregisterVerb, kDoctorVerb,
    };
}

}  // namespace tools
