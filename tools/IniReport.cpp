#include "tools/IniReport.h"

#include <algorithm>
#include <set>
#include <utility>

#include "services/modReg.h"
#include "tools/Display.h"
#include "tools/Suggestion.h"

namespace tools {

namespace {

using runtime::String;
using runtime::StringView;

constexpr StringView kIniGaps = u" \t";

StringView WithoutGaps(StringView text) {
    const auto first = text.find_first_not_of(kIniGaps);
    if (first == StringView::npos) return {};
    return text.substr(first, text.find_last_not_of(kIniGaps) - first + 1);
}

std::vector<std::string> KnownKeys() {
    std::vector<std::string> keys;
    for (const auto settings : {services::FolderSettings(), services::IdentitySettings()}) {
        for (const services::SuiteSetting& setting : settings) keys.push_back(runtime::ToUtf8(setting.key));
    }
    return keys;
}

bool OpensQuote(StringView value) {
    return !value.empty() && (value.front() == u'"' || value.front() == u'\'');
}

bool IsInQuotes(StringView value) {
    return value.size() >= 2 && OpensQuote(value) && value.back() == value.front();
}

/// True if a ';' or '#' follows a blank, unless the whole value is in quotes.
bool LooksLikeComment(StringView value) {
    if (IsInQuotes(value)) return false;
    for (std::size_t i = 1; i < value.size(); ++i) {
        const bool isMark = value[i] == u';' || value[i] == u'#';
        if (isMark && kIniGaps.find(value[i - 1]) != StringView::npos) return true;
    }
    return false;
}

/// Reads the lines by the same rules as the settings reader.
class IniWalk {
 public:
    IniWalk(StringView text, runtime::LocalePort& locale) : locale_(locale), hasOwnSection_(HasOwnSection(text)) {
        ForEachLine(text, [this](StringView line) { Take(line); });
    }

    IniReport TakeReport() { return std::move(report_); }

 private:
    enum class Place { kAboveSections, kOwnSection, kOtherSection };

    template <typename Take>
    static void ForEachLine(StringView text, Take&& take) {
        while (!text.empty()) {
            const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
            take(WithoutGaps(text.substr(0, end)));
            const std::size_t ending = text.substr(end).starts_with(u"\r\n") ? 2 : 1;
            text.remove_prefix(std::min(end + ending, text.size()));
        }
    }

    bool HasOwnSection(StringView text) {
        bool hasIt = false;
        ForEachLine(text,
                    [&](StringView line) { hasIt = hasIt || (line.starts_with(u'[') && IsOwn(SectionOf(line))); });
        return hasIt;
    }

    static StringView SectionOf(StringView line) {
        const auto end = line.find(u']');
        return end == StringView::npos ? StringView() : WithoutGaps(line.substr(1, end - 1));
    }

    bool IsOwn(StringView section) const {
        return locale_.LowerCase(section) == locale_.LowerCase(services::kSettingsApplication);
    }

    void Take(StringView line) {
        ++number_;
        if (line.empty() || line.starts_with(u';')) return;
        if (line.starts_with(u'[')) {
            TakeSection(line);
        } else if (place_ == Place::kAboveSections) {
            TakeAboveSections(line);
        } else if (place_ == Place::kOwnSection) {
            TakeOwnLine(line);
        }
    }

    void TakeSection(StringView line) {
        if (line.find(u']') == StringView::npos) {
            Remark(Quoted(line) + " has no ']' and is ignored", "add the ']'");
            return;
        }
        const StringView section = SectionOf(line);
        place_ = IsOwn(section) ? Place::kOwnSection : Place::kOtherSection;
        const std::vector<std::string> own = {runtime::ToUtf8(services::kSettingsApplication)};
        if (place_ == Place::kOtherSection && !hasOwnSection_ && Nearest(runtime::ToUtf8(section), own)) {
            Remark("section [" + Display(section) + "] is not read; the component reads [" + own.front() + "]",
                   "name the section [" + own.front() + "]");
        }
    }

    void TakeAboveSections(StringView line) {
        if (saidAboveSections_) return;
        saidAboveSections_ = true;
        Remark(Quoted(line) + " is above the first section and is ignored", "put [Marlento] above it");
    }

    void TakeOwnLine(StringView line) {
        const auto equals = line.find(u'=');
        if (equals == StringView::npos) {
            Remark(Quoted(line) + " has no '=' and is ignored",
                   "write NAME = VALUE, or ';' before it to make it a comment");
            return;
        }
        const StringView key = WithoutGaps(line.substr(0, equals));
        if (key.empty()) {
            Remark(Quoted(line) + " has no name before the '=' and is ignored", "write NAME = VALUE");
            return;
        }
        TakeSetting(key, WithoutGaps(line.substr(equals + 1)));
    }

    void TakeSetting(StringView key, StringView value) {
        const auto isKey = [&](const std::string& known) {
            return locale_.LowerCase(runtime::FromUtf8(known)) == locale_.LowerCase(key);
        };
        const auto known = std::ranges::find_if(knownKeys_, isKey);
        if (known == knownKeys_.end()) return TakeUnknown(key);
        if (!seen_.insert(*known).second) {
            Remark("'" + *known + "' is set a second time; this value is ignored", "remove one of the two lines");
            return;
        }
        report_.taken.push_back(*known);
        if (LooksLikeComment(value)) {
            Remark("the value of '" + *known + "' seems to end with a comment; the comment becomes part of the value",
                   "put the comment on a line of its own");
        } else if (OpensQuote(value) && !IsInQuotes(value)) {
            Remark("the value of '" + *known +
                       "' starts with a quote but does not end with it; the quote becomes part of the value",
                   "end the value with the quote, or remove the quote");
        }
    }

    void TakeUnknown(StringView key) {
        const std::string name = Display(key);
        const std::optional<std::string> meant = Nearest(runtime::ToUtf8(key), knownKeys_);
        if (!meant) {
            report_.notTaken.push_back(name);
            return;
        }
        Remark(Quoted(key) + " is not a setting that the component reads; did you mean '" + *meant + "'?",
               "rename it to " + *meant);
    }

    void Remark(std::string what, std::string advice) {
        report_.remarks.push_back({number_, std::move(what), std::move(advice)});
    }

    runtime::LocalePort& locale_;
    const std::vector<std::string> knownKeys_ = KnownKeys();
    const bool hasOwnSection_;
    Place place_ = Place::kAboveSections;
    bool saidAboveSections_ = false;
    std::size_t number_ = 0;
    std::set<std::string> seen_;
    IniReport report_;
};

}  // namespace

IniReport ReportOnIni(StringView text, runtime::LocalePort& locale) {
    return IniWalk(text, locale).TakeReport();
}

}  // namespace tools
