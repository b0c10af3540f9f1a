// A test program that exits inside its first test. Its exit code is 0, as after a success.
#include <gtest/gtest.h>

#include "runtime/win32/WindowsHeaders.h"

TEST(EndsEarly, InsideATest) {
    TerminateProcess(GetCurrentProcess(), 0);
}
