// Includes COM's headers and the header that the build generates from the component's IDL. All files of this folder
// include these headers through this file.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

#include <ole2.h>
#include <olectl.h>

#include "host/com/K4TBackProcess.h"
