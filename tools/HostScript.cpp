// Parses the lines of `backproc host`.
#include "tools/HostScript.h"

#include <algorithm>
#include <array>
#include <limits>

#include "tools/Display.h"
#include "tools/Usage.h"

namespace tools {

namespace {

enum class Form {
    kAlone,           ///< create
    kNumber,          ///< load 1
    kNumberAndText,   ///< notify 1 All,SAVE
    kKey,             ///< get IniFile
    kKeyAndText,      ///< set JobDir C:\JOB
    kModuleAndText,   ///< send 1 EDITOR OPEN
    kModuleModeText,  ///< shell 1 EDITOR 1 amp.sch
};

struct VerbForm {
    StringView name;
    HostVerb verb;
    Form form;
};

constexpr std::array kVerbs{
    VerbForm{u"create", HostVerb::kCreate, Form::kAlone},
    VerbForm{u"load", HostVerb::kLoad, Form::kNumber},
    VerbForm{u"notify", HostVerb::kNotify, Form::kNumberAndText},
    VerbForm{u"sever", HostVerb::kSever, Form::kNumberAndText},
    VerbForm{u"release", HostVerb::kRelease, Form::kNumber},
    VerbForm{u"set", HostVerb::kSet, Form::kKeyAndText},
    VerbForm{u"get", HostVerb::kGet, Form::kKey},
    VerbForm{u"strings", HostVerb::kStrings, Form::kAlone},
    VerbForm{u"state", HostVerb::kState, Form::kAlone},
    VerbForm{u"send", HostVerb::kSend, Form::kModuleAndText},
    VerbForm{u"sendall", HostVerb::kSendAll, Form::kNumberAndText},
    VerbForm{u"shell", HostVerb::kShell, Form::kModuleModeText},
    VerbForm{u"pump", HostVerb::kPump, Form::kNumber},
};

constexpr StringView kBlanks = u" \t";

/// Reads words from the front of a line. The rest of the line keeps its blanks.
class Words {
 public:
    explicit Words(StringView line) : rest_(line) {}

    /// Returns the next word, or "" at the end of the line.
    StringView Next() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
        const StringView word = rest_.substr(0, rest_.find_first_of(kBlanks));
        rest_.remove_prefix(word.size());
        return word;
    }

    /// Returns everything after the single blank that ended the last word. Returns no value if the line ends directly
    /// after the last word.
    std::optional<String> Rest() const {
        if (rest_.empty()) return std::nullopt;
        return String(rest_.substr(1));
    }

 private:
    StringView rest_;
};

const VerbForm& FindVerb(StringView name) {
    const auto verb = std::find_if(kVerbs.begin(), kVerbs.end(), [&](const VerbForm& row) { return row.name == name; });
    if (verb == kVerbs.end())
        throw HostScriptError("unknown command " + Quoted(name) + "; 'backproc help host' lists the commands");
    return *verb;
}

/// Accepts at most nine digits, because the value must fit into 32 bits.
std::int32_t ToNumber(const std::string& command, StringView word) {
    constexpr std::size_t kMaxDigits = 9;
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    if (word.empty() || word.size() > kMaxDigits || !std::all_of(word.begin(), word.end(), isDigit)) {
        throw HostScriptError("'" + command + "' takes a whole number from 0 to 999999999, not " + Quoted(word));
    }
    std::int32_t number = 0;
    for (const char16_t digit : word) number = number * 10 + (digit - u'0');
    return number;
}

std::int16_t ToMode(StringView word) {
    constexpr std::int64_t kLeast = std::numeric_limits<std::int16_t>::min();
    constexpr std::int64_t kGreatest = std::numeric_limits<std::int16_t>::max();
    try {
        return static_cast<std::int16_t>(ReadWhole(word, "MODE", kLeast, kGreatest));
    } catch (const UsageError& error) {
        throw HostScriptError(error.what());
    }
}

StringView Required(const std::string& command, StringView word, const char* what) {
    if (word.empty()) throw HostScriptError("'" + command + "' requires a " + what);
    return word;
}

bool TakesModule(Form form) {
    return form == Form::kModuleAndText || form == Form::kModuleModeText;
}
bool TakesNumber(Form form) {
    return form == Form::kNumber || form == Form::kNumberAndText || TakesModule(form);
}
bool TakesKey(Form form) {
    return form == Form::kKey || form == Form::kKeyAndText;
}
bool TakesText(Form form) {
    return form == Form::kNumberAndText || form == Form::kKeyAndText || TakesModule(form);
}

}  // namespace

HostCommand ParseHostCommand(StringView line) {
    Words words(line);
    const StringView name = words.Next();
    if (name.empty() || name.front() == u'#') return {};

    const VerbForm& row = FindVerb(name);
    const std::string given = runtime::ToUtf8(name);
    HostCommand command;
    command.verb = row.verb;
    if (TakesNumber(row.form)) command.number = ToNumber(given, Required(given, words.Next(), "number"));
    if (TakesKey(row.form)) command.key = Required(given, words.Next(), "key");
    if (TakesModule(row.form)) command.key = Required(given, words.Next(), "module");
    if (row.form == Form::kModuleModeText) command.mode = ToMode(Required(given, words.Next(), "mode"));
    if (TakesText(row.form)) {
        command.text = words.Rest();
    } else if (const StringView more = words.Next(); !more.empty()) {
        throw HostScriptError("unexpected argument " + Quoted(more) + " for '" + given + "'");
    }
    return command;
}

}  // namespace tools
