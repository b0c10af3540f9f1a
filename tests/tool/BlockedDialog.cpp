// Stands for a dialog whose thread is blocked, as by a display that does not respond. Prints "given up" and ends with
// the exit code of a timeout when the time limit works; otherwise it runs until it is killed.
#include <iostream>

#include "tools/DialogDeadline.h"

int main() {
    const tools::DialogDeadline deadline(1, [] { std::cout << "given up" << std::flush; });
    Sleep(INFINITE);
}
