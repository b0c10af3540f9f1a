// Dispatches the command line to a verb.
#include "tools/Tool.h"

#include <algorithm>
#include <exception>
#include <new>
#include <ostream>
#include <string>
#include <vector>

#include "tools/Display.h"
#include "tools/Suggestion.h"
#include "tools/Usage.h"

namespace tools {

namespace {

bool AsksForHelp(const String& argument) {
    return argument == u"--help" || argument == u"-h" || argument == u"/?";
}

/// True if the first argument is a help option, or if --help is anywhere before "--". Arguments after "--" are never
/// options.
bool AsksForHelpAnywhere(const Arguments& arguments) {
    if (!arguments.empty() && AsksForHelp(arguments.front())) return true;
    const auto end = std::find(arguments.begin(), arguments.end(), kEndOfOptions);
    return std::find(arguments.begin(), end, u"--help") != end;
}

bool IsPartOfOption(char letter) {
    return letter == '-' || (letter >= 'a' && letter <= 'z');
}

/// Returns --help and the options that the verb's help mentions.
std::vector<std::string> OptionsOf(const Verb& verb) {
    std::vector<std::string> options = {"--help"};
    const std::string_view help = verb.help;
    for (std::size_t at = help.find("--"); at < help.size();) {
        const auto end = static_cast<std::size_t>(
            std::find_if_not(help.begin() + static_cast<std::ptrdiff_t>(at), help.end(), IsPartOfOption) -
            help.begin());
        if (end > at + kEndOfOptions.size()) options.emplace_back(help.substr(at, end - at));
        at = help.find("--", end);
    }
    return options;
}

constexpr std::string_view kOverviewEnd =
    R"(
'backproc help VERB' and 'backproc VERB --help' show the verb's arguments, exit codes and an example.
Output is UTF-8, one fact per line. Errors go to standard error.

Exit codes:
  0      done; query: accepted
  1      failed; doctor, texts: something is wrong; query: cancelled
  2      the command line cannot be understood; msgbox: Cancel, or closed
  3      query: the extra button
  6 7 8  msgbox: Yes, No, Yes To All
  64     msgbox, query: the command line cannot be understood
  65     msgbox, query: failed
  66     msgbox, query: not answered within --timeout

With K4TBACKPROCESS_DEVELOPMENT_KERNEL=1 in the environment, the component uses the development kernel, dev\QmxKrn2K.dll
in its own folder. Otherwise it uses that kernel only if it finds no other one.

With K4TBACKPROCESS_UNATTENDED=1 in the environment, the component shows no dialog and answers at once.
)";

class Tool {
 public:
    Tool(std::span<const Verb> verbs, std::string_view version, Console& console)
        : verbs_(verbs), version_(version), console_(console) {}

    int Run(const Arguments& arguments) {
        if (arguments.empty()) {
            PrintOverview(console_.err);
            return kBadUsage;
        }
        const String& first = arguments.front();
        const Arguments rest(arguments.begin() + 1, arguments.end());
        if (first == u"help" || AsksForHelp(first)) return Help(rest);
        if (first == u"version" || first == u"--version" || first == u"-v") return Version(rest);
        return RunVerb(Find(first), rest);
    }

 private:
    const Verb& Find(const String& name) const {
        const auto isMeant = [wanted = runtime::ToUtf8(name)](const Verb& verb) { return verb.name == wanted; };
        const auto verb = std::find_if(verbs_.begin(), verbs_.end(), isMeant);
        if (verb != verbs_.end()) return *verb;
        if (name.starts_with(u'-')) throw UnknownOption(name);
        std::vector<std::string> names = {"help", "version"};
        for (const Verb& known : verbs_) names.emplace_back(known.name);
        throw UsageError("unknown command " + Quoted(name) + DidYouMean(runtime::ToUtf8(name), names));
    }

    int Help(const Arguments& arguments) const {
        RequireAtMost(1, arguments);
        if (arguments.empty()) {
            PrintOverview(console_.out);
        } else {
            console_.out << Find(arguments.front()).help;
        }
        return kSuccess;
    }

    int Version(const Arguments& arguments) const {
        RequireAtMost(0, arguments);
        console_.out << "backproc " << version_ << '\n';
        return kSuccess;
    }

    int RunVerb(const Verb& verb, const Arguments& arguments) const {
        if (AsksForHelpAnywhere(arguments)) {
            console_.out << verb.help;
            return kSuccess;
        }
        try {
            const int code = verb.run(arguments, console_);
            console_.out.flush();
            if (console_.out) return code;
            console_.err << "backproc " << verb.name << ": cannot write all output (disk full or pipe closed)\n";
        } catch (const UnknownOptionError& error) {
            return ReportUsage(verb, error.what() + DidYouMean(error.Option(), OptionsOf(verb)));
        } catch (const UsageError& error) {
            return ReportUsage(verb, error.what());
        } catch (const std::bad_alloc&) {
            console_.err << "backproc " << verb.name << ": out of memory\n";
        } catch (const std::exception& error) {
            console_.err << "backproc " << verb.name << ": " << error.what() << '\n';
        }
        return verb.failure;
    }

    int ReportUsage(const Verb& verb, const std::string& text) const {
        console_.err << "backproc " << verb.name << ": " << text << "\nTry 'backproc help " << verb.name << "'.\n";
        return verb.badUsage;
    }

    void PrintOverview(std::ostream& stream) const {
        std::size_t width = 0;
        for (const Verb& verb : verbs_) width = std::max(width, verb.name.size());
        stream << "Usage: backproc VERB [ARGUMENT...]\n"
                  "       backproc help [VERB]\n"
                  "       backproc version\n\n"
                  "Verbs:\n";
        for (const Verb& verb : verbs_) {
            stream << "  " << verb.name << std::string(width - verb.name.size(), ' ') << "  " << verb.summary << '\n';
        }
        stream << kOverviewEnd;
    }

    std::span<const Verb> verbs_;
    std::string_view version_;
    Console& console_;
};

}  // namespace

int RunTool(std::span<const Verb> verbs, std::string_view version, const Arguments& arguments, Console& console) {
    try {
        return Tool(verbs, version, console).Run(arguments);
    } catch (const UsageError& error) {
        console.err << "backproc: " << error.what() << "\nTry 'backproc help'.\n";
        return kBadUsage;
    }
}

}  // namespace tools
