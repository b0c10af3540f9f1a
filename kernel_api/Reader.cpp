#include "kernel_api/Reader.h"

#include "runtime/Error.h"

namespace kernel_api {
namespace {
Reader* currentReader = nullptr;
}

Reader& CurrentReader() {
    if (!currentReader) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, u"the settings and text reader");
    return *currentReader;
}

void UseReader(Reader* reader) {
    currentReader = reader;
}

}  // namespace kernel_api
