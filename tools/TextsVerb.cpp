// Implements `backproc texts`. The verb lists all texts of the component with their translations, or shows one text.
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <stdexcept>

#include "host/TextCatalogue.h"
#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "runtime/Error.h"
#include "runtime/Ports.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "tools/ClientView.h"
#include "tools/Display.h"
#include "tools/LanguageFile.h"
#include "tools/TextReport.h"
#include "tools/UiFont.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc texts [--folder F] [--check]
       backproc texts get ID [DEFAULT]
       backproc texts --template [--output FILE]

Shows every text of the component, one per line, with fields separated by tabs: 'translated' or 'missing', identifier,
[English], [translation], where it is shown. If this system's ANSI code page changes a caption in the state that modules
read, 'published as [TEXT]' follows. The language file is K4TBackProcess.txt in folder F or, without F, in the folder of
the shared string LANGUAGEPATH. Without both, every text is missing. The problems of the file follow:

  encoding    the file is UTF-16, which cannot be read
  unreadable  a line that is skipped, with the reason
  unknown     an identifier that the component does not use
  clash       two captions of a dialog with the same access key
  key         a caption without its access key
  wide        a caption that is too wide for its button, in the font that the component uses on this system
  blank       a text without the blank that separates it from a joined text
  state       a caption that breaks the state that modules read: it has a comma, a quote mark or a line break

The last line has the number of translated identifiers. 'get' shows the text ID in the current language.
If this text does not exist, 'get' shows DEFAULT, or fails without a DEFAULT.

  ID             identifier of a text
  DEFAULT        any text; may be empty: ""
  --folder F     folder of the language file; by default, the folder of LANGUAGEPATH
  --check        for a build: exit code 1 for every problem, not only for a missing text
  --template     writes a language file with the English texts, as the start of a translation
  --output FILE  writes the template to the new file FILE, in UTF-8

Exit code: 0 no text is missing, 1 a text is missing or the file cannot be read, 2 bad usage. With --check, 1 for every
problem. For 'get', 0 a text was shown, 1 the text does not exist.

Examples:
  backproc texts --folder examples\languages\German --check
  backproc texts get 39171 "&Yes"
)";

struct TextsRequest {
    std::optional<String> folder;
    bool checks = false;
    bool isTemplate = false;
    std::optional<String> output;
};

TextsRequest ReadRequest(const Arguments& arguments) {
    TextsRequest request;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const String& option = arguments[i];
        if (option == u"--folder") {
            request.folder = ValueOf(arguments, i++);
        } else if (option == u"--output") {
            request.output = ValueOf(arguments, i++);
        } else if (option == u"--check") {
            request.checks = true;
        } else if (option == u"--template") {
            request.isTemplate = true;
        } else if (option.starts_with(u'-')) {
            throw UnknownOption(option);
        } else {
            throw UnexpectedArgument(option);
        }
    }
    if (request.isTemplate && (request.folder || request.checks)) {
        throw UsageError("--template takes no --folder and no --check");
    }
    if (request.output && !request.isTemplate) throw UsageError("--output needs --template");
    return request;
}

/// Returns the language folder to use. If no folder is chosen or no kernel is found, prints a line to `err` and returns
/// no value. The caller then uses the English texts.
std::optional<String> LanguageFolder(const TextsRequest& request, std::ostream& err) {
    if (request.folder) return request.folder;
    try {
        String folder =
            kernel_api::CurrentReader().TextAt(kernel_api::CurrentKernel().E_GetString(kernel_api::kLanguageFolderKey));
        if (!folder.empty()) return folder;
        err << "backproc texts: no language folder is chosen; give one with --folder\n";
    } catch (const runtime::Error& error) {
        err << "backproc texts: " << error.what() << "; without a kernel, give the language folder with --folder\n";
    }
    return std::nullopt;
}

LanguageFileText ReadTexts(const String& folder) {
    runtime::FilesPort& files = runtime::CurrentPorts().files;
    const String path = LanguageFileIn(files, folder);
    auto bytes = files.Read(path);
    if (!bytes)
        throw std::runtime_error("cannot read " + Quoted(path) +
                                 "; check that you may read it and that no program locks it");
    return {Display(path), *std::move(bytes)};
}

int WriteTemplate(const TextsRequest& request, Console& console) {
    const auto catalogue = host::TextCatalogue();
    if (!request.output) {
        WriteTextTemplate(console.out, catalogue);
        return kSuccess;
    }
    const std::filesystem::path path(*request.output);
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored)) {
        throw std::runtime_error(Quoted(*request.output) + " already exists; give a new file");
    }
    std::ofstream file(path, std::ios::binary);
    WriteTextTemplate(file, catalogue);
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + Quoted(*request.output) +
                                 "; give a file in a folder where you may write");
    }
    return kSuccess;
}

runtime::Twips WidthOf(StringView caption) {
    const services::UiFont& chosen = services::Values().uiFont;
    runtime::Font font;
    if (!chosen.name.empty()) font.name = chosen.name;
    if (chosen.size > 0) font.size = chosen.size;
    font.charset = chosen.characterSet;
    return runtime::CurrentPorts().windows.TextSize(runtime::WithoutMarks(caption), font, runtime::kEndlessWidth).width;
}

/// True if the text exists. An existing text is the same for every default.
bool HasText(StringView id) {
    return services::GetLocalText(u"0", id) == services::GetLocalText(u"1", id);
}

int ShowText(const Arguments& arguments, Console& console) {
    if (arguments.empty()) throw Missing("ID");
    RequireAtMost(2, arguments);
    PrintWhichComponent("texts", ComposeAsClient("texts", console.err), console.err);
    const String& id = arguments[0];
    const bool hasDefault = arguments.size() == 2;
    if (!hasDefault && !HasText(id)) {
        throw std::runtime_error("there is no text " + Quoted(id) +
                                 " in the current language; give a DEFAULT, or see 'backproc texts'");
    }
    console.out << Display(services::GetLocalText(hasDefault ? arguments[1] : String(), id)) << '\n';
    return kSuccess;
}

int RunTexts(const Arguments& arguments, Console& console) {
    if (!arguments.empty() && arguments[0] == u"get") {
        return ShowText({arguments.begin() + 1, arguments.end()}, console);
    }
    const TextsRequest request = ReadRequest(arguments);
    if (request.isTemplate) return WriteTemplate(request, console);
    const ComponentInForce component = ComposeAsClient("texts", console.err);
    if (!request.folder) PrintWhichComponent("texts", component, console.err);
    std::optional<LanguageFileText> file;
    if (const std::optional<String> folder = LanguageFolder(request, console.err)) file = ReadTexts(*folder);
    if (file) ChooseFont();
    const TextReportCounts counts =
        WriteTextReport(console.out, host::TextCatalogue(), file, runtime::CurrentPorts().locale, WidthOf);
    return counts.missing > 0 || (request.checks && counts.findings > 0) ? kFailure : kSuccess;
}

}  // namespace

const Verb kTextsVerb = {"texts", "Shows all texts and their translations", kHelp, RunTexts};

}  // namespace tools
