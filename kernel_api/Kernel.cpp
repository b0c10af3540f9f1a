#include "kernel_api/Kernel.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {
Kernel* currentKernel = nullptr;
}

Kernel& CurrentKernel() {
    if (!currentKernel) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, u"the kernel");
    return *currentKernel;
}

void UseKernel(Kernel* kernel) {
    currentKernel = kernel;
}

}  // namespace kernel_api
