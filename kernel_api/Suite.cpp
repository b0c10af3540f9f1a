#include "kernel_api/Suite.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {

Suite currentSuite;

template <typename Part>
Part& Chosen(Part* part, StringView name) {
    if (!part) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, name);
    return *part;
}

}  // namespace

Suite& CurrentSuite() {
    return currentSuite;
}

Kernel& CurrentKernel() {
    return Chosen(currentSuite.kernel, u"the kernel");
}

Reader& CurrentReader() {
    return Chosen(currentSuite.reader, u"the settings and text reader");
}

Splitter& CurrentSplitter() {
    return Chosen(currentSuite.splitter, u"the string splitter");
}

}  // namespace kernel_api
