// `backproc texts`: all texts that the component asks for, and what a language makes of them.
#include <optional>
#include <ostream>
#include <stdexcept>

#include "host/Composition.h"
#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"
#include "tools/Display.h"
#include "tools/LanguageFile.h"
#include "tools/TextReport.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc texts [--folder F]
       backproc texts --template

Shows every text that the component asks for, one a line, with tabs between: 'translated' or 'missing', identifier,
[English], [translation], where it is shown. The language file is K4TBackProcess.txt in the folder F, or in the one of
the shared string LANGUAGEPATH; without both everything is missing. Then what is wrong with the file:

  unreadable  a line that is skipped, and why
  unknown     an identifier that the component does not ask for
  clash       two captions of a dialog that have the same access key
  blank       a text that is joined with others and has lost the blank in between
  state       a caption that breaks the state which the modules read: it has a comma, a quote mark or a line break

The last line counts.

  --folder F  the folder to look into; without it, the one of LANGUAGEPATH
  --template  writes a language file with the English texts instead, to start a translation from

Exit code: 0 nothing is missing, 1 something is missing or the file cannot be read, 2 bad usage.

Example:
  backproc texts --folder examples\languages\German
)";

void CheckArguments(const Arguments& arguments) {
    if (arguments.empty()) return;
    const bool namesFolder = arguments[0] == u"--folder";
    if (!namesFolder && arguments[0] != u"--template") throw UnknownOption(arguments[0]);
    if (namesFolder) ValueOf(arguments, 0);
    AtMost(namesFolder ? 2 : 1, arguments);
}

std::optional<String> LanguageFolder(const Arguments& arguments) {
    if (arguments.size() == 2) return arguments[1];
    String folder = kernel_api::CurrentReader().TextAt(kernel_api::CurrentKernel().E_GetString(u"LANGUAGEPATH"));
    if (folder.empty()) return std::nullopt;
    return folder;
}

std::string ReadTexts(const String& folder) {
    runtime::FilesPort& files = runtime::CurrentPorts().files;
    const String path = LanguageFileIn(files, folder);
    auto bytes = files.Read(path);
    if (!bytes)
        throw std::runtime_error("cannot read " + Quoted(path) +
                                 "; check that you may read it and that no program locks it");
    return *std::move(bytes);
}

int RunTexts(const Arguments& arguments, Console& console) {
    CheckArguments(arguments);
    const auto catalogue = host::TextCatalogue();
    if (!arguments.empty() && arguments[0] == u"--template") {
        WriteTextTemplate(console.out, catalogue);
        return kSuccess;
    }
    host::EnsureComposed(GetModuleHandleW(nullptr));
    const std::optional<String> folder = LanguageFolder(arguments);
    std::optional<std::string> bytes;
    if (folder) bytes = ReadTexts(*folder);
    return WriteTextReport(console.out, catalogue, bytes, runtime::CurrentPorts().locale) == 0 ? kSuccess : kFailure;
}

}  // namespace

const Verb kTextsVerb = {"texts", "Shows all texts and what a language makes of them", kHelp, RunTexts};

}  // namespace tools
