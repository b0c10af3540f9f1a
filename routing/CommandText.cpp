#include "routing/CommandText.h"

#include "runtime/Numbers.h"

namespace routing {

runtime::String ShellCommand(std::int16_t mode, runtime::StringView commandLine) {
    return u"SHELL," + runtime::Trim(runtime::Str(mode)) + u"," + runtime::String(commandLine);
}

}  // namespace routing
