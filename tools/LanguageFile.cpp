#include "tools/LanguageFile.h"

#include <stdexcept>

#include "kernel_api/builtin/BuiltInReader.h"
#include "tools/Display.h"

namespace tools {

runtime::String LanguageFileIn(runtime::FilesPort& files, runtime::StringView folder) {
    using kernel_api::builtin::kMaxTextsBytes;
    using kernel_api::builtin::kTextsFileName;
    // An empty folder name would make the reader use the suite's current language folder.
    if (folder.empty())
        throw std::runtime_error("the name of the language folder is empty; give a folder that has a " +
                                 Display(kTextsFileName));
    runtime::String path = kernel_api::builtin::TextsPathIn(folder);
    const auto stamp = files.Stamp(path);
    if (!stamp)
        throw std::runtime_error("there is no language file " + Quoted(path) +
                                 "; 'backproc texts --template' writes one to start from");
    if (stamp->size > kMaxTextsBytes) {
        throw std::runtime_error("the language file " + Quoted(path) + " has " + std::to_string(stamp->size) +
                                 " bytes; make it no larger than " + std::to_string(kMaxTextsBytes));
    }
    return path;
}

}  // namespace tools
