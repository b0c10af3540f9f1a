// Stores pointers to the suite's kernel, reader and splitter in use. The composition sets the pointers.
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

/// Returns the parts that CurrentKernel, CurrentReader and CurrentSplitter return. The caller may replace each part.
Suite& CurrentSuite();

}  // namespace kernel_api
