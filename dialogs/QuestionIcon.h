// The icon of the suite's message box: a white speech bubble with a blue question mark, 32 x 32 in sixteen colours.
#pragma once

#include "runtime/Picture.h"

namespace dialogs {

extern const runtime::Picture kQuestionIcon;

}  // namespace dialogs
