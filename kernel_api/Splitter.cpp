#include "kernel_api/Splitter.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {
Splitter* currentSplitter = nullptr;
}

Splitter& CurrentSplitter() {
    if (!currentSplitter) throw runtime::Error(runtime::kObjectVariableNotSet);
    return *currentSplitter;
}

void UseSplitter(Splitter* splitter) {
    currentSplitter = splitter;
}

}  // namespace kernel_api
