#include "services/ProcessValues.h"

#include "runtime/Error.h"

namespace services {
namespace {
ProcessValues* currentValues = nullptr;
}

ProcessValues& Values() {
    if (!currentValues) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, u"the process's values");
    return *currentValues;
}

void UseValues(ProcessValues* values) {
    currentValues = values;
}

void InitNumberFormats() {
    Values().numberFormats = {
        .coordinate = u"#0.0000#",
        .value = u"###0.000#",
        .oneDecimal = u"##0.0#",
        .fixedCoordinate = u"#0.000",
        .fixedValue = u"###0.0",
    };
}

}  // namespace services
