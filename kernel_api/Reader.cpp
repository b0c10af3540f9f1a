#include "kernel_api/Reader.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {
Reader* currentReader = nullptr;
}

Reader& CurrentReader() {
    if (!currentReader) throw runtime::Error(runtime::kObjectVariableNotSet);
    return *currentReader;
}

void UseReader(Reader* reader) {
    currentReader = reader;
}

}  // namespace kernel_api
