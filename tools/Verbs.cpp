// The verbs that the tool has.
#include "tools/Verbs.h"

namespace tools {

std::vector<Verb> AllVerbs() {
    return {
        kHostVerb,   kRaiseVerb, kStringsVerb, kModulesVerb, kSplitVerb,    kWhereVerb,    kTextVerb,       kTextsVerb,
        kLocaleVerb, kErrorVerb, kMsgboxVerb,  kQueryVerb,   kHelpFileVerb, kRegisterVerb, kUnregisterVerb, kDoctorVerb,
    };
}

}  // namespace tools
