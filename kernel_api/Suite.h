// The suite's parts in use, in one place. The composition chooses them and owns them.
#pragma once

#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "kernel_api/Splitter.h"

namespace kernel_api {

struct Suite {
    Kernel* kernel = nullptr;
    Reader* reader = nullptr;
    Splitter* splitter = nullptr;
};

/// What CurrentKernel, CurrentReader and CurrentSplitter return. Each part may be exchanged.
Suite& CurrentSuite();

}  // namespace kernel_api
