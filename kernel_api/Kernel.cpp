#include "kernel_api/Kernel.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {
Kernel* currentKernel = nullptr;
}

Kernel& CurrentKernel() {
    if (!currentKernel) throw runtime::Error(runtime::kObjectVariableNotSet);
    return *currentKernel;
}

void UseKernel(Kernel* kernel) {
    currentKernel = kernel;
}

}  // namespace kernel_api
