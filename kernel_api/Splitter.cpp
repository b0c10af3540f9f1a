#include "kernel_api/Splitter.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {
Splitter* currentSplitter = nullptr;
}

Splitter& CurrentSplitter() {
    if (!currentSplitter) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, u"the string splitter");
    return *currentSplitter;
}

void UseSplitter(Splitter* splitter) {
    currentSplitter = splitter;
}

}  // namespace kernel_api
