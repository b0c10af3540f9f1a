#include "tools/LanguageFile.h"

#include <stdexcept>

#include "kernel_api/dev/BuiltInReader.h"
#include "tools/Display.h"

namespace tools {

runtime::String LanguageFileIn(runtime::FilesPort& files, runtime::StringView folder) {
    using kernel_api::dev::kMostTextsBytes;
    // An empty folder would mean that of the suite's current language to the reader.
    if (folder.empty()) throw std::runtime_error("the language folder has no name");
    runtime::String path = kernel_api::dev::TextsPathIn(folder);
    const auto stamp = files.Stamp(path);
    if (!stamp) throw std::runtime_error("there is no language file '" + Display(path) + "'");
    if (stamp->size > kMostTextsBytes) {
        throw std::runtime_error("the language file '" + Display(path) + "' has more than " +
                                 std::to_string(kMostTextsBytes) + " bytes and is not read");
    }
    return path;
}

}  // namespace tools
