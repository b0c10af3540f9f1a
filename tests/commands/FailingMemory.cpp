// These operators have their own file, because compilers warn if they inline only one operator of a pair.
#include "tests/commands/FailingMemory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {
bool memoryIsShort = false;
}

void* operator new(std::size_t size) {
    void* const room = memoryIsShort ? nullptr : std::malloc(size);
    if (!room) throw std::bad_alloc();
    return room;
}
void operator delete(void* room) noexcept {
    std::free(room);
}
void operator delete(void* room, std::size_t) noexcept {
    std::free(room);
}

namespace tests {

void MakeMemoryShort(bool isShort) {
    memoryIsShort = isShort;
}

}  // namespace tests
