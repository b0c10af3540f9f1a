// COM's headers and the declarations made from the component's IDL, included alike everywhere at the edge.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

#include <ole2.h>
#include <olectl.h>

#include "host/com/K4TBackProcess.h"
