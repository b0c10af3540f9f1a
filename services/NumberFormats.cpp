#include "services/NumberFormats.h"

namespace services {

void InitNumberFormats() {
    numberFormats = {
        .coordinate = u"#0.0000#",
        .value = u"###0.000#",
        .oneDecimal = u"##0.0#",
        .fixedCoordinate = u"#0.000",
        .fixedValue = u"###0.0",
    };
}

}  // namespace services
