#include "services/WindowOrder.h"

#include "runtime/Form.h"

namespace services {

void SetWindowTopMost(runtime::Form& form, bool onTop) {
    form.SetTopMost(onTop);
}

}  // namespace services
