// The suite's parts in use. The composition chooses them and owns them.
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

/// The parts that CurrentKernel, CurrentReader and CurrentSplitter return. Callers may replace each part.
Suite& CurrentSuite();

}  // namespace kernel_api
