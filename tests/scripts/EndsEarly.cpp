// A test program that exits inside its first test with the exit code of success.
#include <gtest/gtest.h>

#include "runtime/win32/WindowsHeaders.h"

TEST(EndsEarly, InsideATest) {
    TerminateProcess(GetCurrentProcess(), 0);
}
