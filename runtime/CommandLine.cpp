#include "runtime/CommandLine.h"

namespace runtime {
namespace {

bool IsGap(char16_t c) {
    return c == u' ' || c == u'\t';
}

}  // namespace

StringView WithoutProgramName(StringView commandLine) {
    std::size_t i = 0;
    for (bool quoted = false; i < commandLine.size(); ++i) {
        if (commandLine[i] == u'"') quoted = !quoted;
        if (!quoted && IsGap(commandLine[i])) break;
    }
    while (i < commandLine.size() && IsGap(commandLine[i])) ++i;
    return commandLine.substr(i);
}

}  // namespace runtime
