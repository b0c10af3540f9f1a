// Simulates a dialog whose thread is blocked, for example by a display that does not respond. If the time limit works,
// the program prints "given up" and ends with the exit code of a timeout. Otherwise it runs until it is killed.
#include <iostream>

#include "tools/DialogDeadline.h"

int main() {
    const tools::DialogDeadline deadline(1, [] { std::cout << "given up" << std::flush; });
    Sleep(INFINITE);
}
