// COM's headers and the header made from the component's IDL. All files of this folder include them through this file.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

#include <ole2.h>
#include <olectl.h>

#include "host/com/K4TBackProcess.h"
