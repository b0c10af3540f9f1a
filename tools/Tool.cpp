// Dispatch of the command line.
#include "tools/Tool.h"

#include <algorithm>
#include <exception>
#include <new>
#include <ostream>

#include "tools/Display.h"
#include "tools/Usage.h"

namespace tools {

namespace {

bool AsksForHelp(const String& argument) {
    return argument == u"--help" || argument == u"-h" || argument == u"/?";
}

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
        if (first == u"--version") return Version(rest);
        return RunVerb(Find(first), rest);
    }

 private:
    const Verb& Find(const String& name) const {
        const auto isMeant = [wanted = runtime::ToUtf8(name)](const Verb& verb) { return verb.name == wanted; };
        const auto verb = std::find_if(verbs_.begin(), verbs_.end(), isMeant);
        if (verb == verbs_.end())
            throw name.starts_with(u'-') ? UnknownOption(name) : UsageError("there is no verb " + Quoted(name));
        return *verb;
    }

    int Help(const Arguments& arguments) const {
        AtMost(1, arguments);
        if (arguments.empty()) {
            PrintOverview(console_.out);
        } else {
            console_.out << Find(arguments.front()).help;
        }
        return kSuccess;
    }

    int Version(const Arguments& arguments) const {
        AtMost(0, arguments);
        console_.out << "backproc " << version_ << '\n';
        return kSuccess;
    }

    int RunVerb(const Verb& verb, const Arguments& arguments) const {
        if (!arguments.empty() && AsksForHelp(arguments.front())) {
            console_.out << verb.help;
            return kSuccess;
        }
        try {
            return verb.run(arguments, console_);
        } catch (const UsageError& error) {
            console_.err << "backproc " << verb.name << ": " << error.what() << "\nTry 'backproc help " << verb.name
                         << "'.\n";
            return kBadUsage;
        } catch (const std::bad_alloc&) {
            console_.err << "backproc " << verb.name << ": there is not enough memory for this\n";
        } catch (const std::exception& error) {
            console_.err << "backproc " << verb.name << ": " << error.what() << '\n';
        }
        return kFailure;
    }

    void PrintOverview(std::ostream& stream) const {
        std::size_t width = 0;
        for (const Verb& verb : verbs_) width = std::max(width, verb.name.size());
        stream << "Usage: backproc VERB [ARGUMENT...]\n"
                  "       backproc help [VERB]\n"
                  "       backproc --version\n\n"
                  "Verbs:\n";
        for (const Verb& verb : verbs_) {
            stream << "  " << verb.name << std::string(width - verb.name.size(), ' ') << "  " << verb.summary << '\n';
        }
        stream << "\n'backproc help VERB' and 'backproc VERB --help' show a verb's arguments, an example and its exit "
                  "codes.\n"
                  "Output is UTF-8, one fact a line; errors go to standard error.\n"
                  "Exit code: 0 done, 1 failed, 2 the command line cannot be understood; 'msgbox' and 'query' have "
                  "their own.\n";
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
