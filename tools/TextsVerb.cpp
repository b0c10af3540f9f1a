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

The last line counts. The exit code is 0 when nothing is missing.

With --template it writes a language file with the English texts, to start a translation from.

Example:
  backproc texts --folder "C:\Orvane\LANG\German"
)";

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
    if (!bytes) throw std::runtime_error("cannot read " + Display(path));
    return *std::move(bytes);
}

int RunTexts(const Arguments& arguments, Console& console) {
    const bool isTemplate = arguments.size() == 1 && arguments[0] == u"--template";
    const bool hasFolder = arguments.size() == 2 && arguments[0] == u"--folder";
    if (!arguments.empty() && !isTemplate && !hasFolder) throw UsageError("takes --folder F or --template");
    const auto catalogue = host::TextCatalogue();
    if (isTemplate) {
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
