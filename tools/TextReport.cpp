#include "tools/TextReport.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <vector>

#include "kernel_api/builtin/TextFile.h"
#include "runtime/Control.h"
#include "services/LocalTexts.h"
#include "tools/Display.h"

namespace tools {

namespace {

using host::CatalogueText;
using kernel_api::builtin::LineFault;
using kernel_api::builtin::TextFile;
using runtime::String;
using runtime::StringView;

using Catalogue = std::span<const CatalogueText>;

std::string_view WordsFor(LineFault fault) {
    switch (fault) {
        case LineFault::kNoEqualsSign:
            return "has no '='";
        case LineFault::kNoIdentifier:
            return "has no identifier before its '='";
        case LineFault::kNoText:
            return "has no text behind its '='";
        case LineFault::kTwice:
            return "repeats an identifier of an earlier line";
        case LineFault::kUnknownEscape:
            return R"(has a backslash that is not one of \n \t \s \\)";
        case LineFault::kNotUtf8:
            break;
    }
    return "is not UTF-8";
}

std::string Bracketed(StringView text) {
    return std::string("[").append(Display(text)).append("]");
}

std::set<String> IdentifiersOf(Catalogue catalogue) {
    std::set<String> identifiers;
    for (const CatalogueText& text : catalogue) identifiers.insert(runtime::Trim(text.id));
    return identifiers;
}

/// Returns the line number of each identifier's text, counted from 1.
std::map<String, std::size_t> LinesOf(std::string_view bytes) {
    std::map<String, std::size_t> lines;
    for (std::size_t number = 1; !bytes.empty(); ++number) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        const TextFile line(bytes.substr(0, end));
        for (const auto& [id, text] : line.All()) lines.try_emplace(String(id), number);
        const std::size_t ending = bytes.substr(end).starts_with("\r\n") ? 2 : 1;
        bytes.remove_prefix(std::min(end + ending, bytes.size()));
    }
    return lines;
}

/// If the kernel's ANSI code page changes the text in the published state, returns a tab and a remark with the changed
/// text. Otherwise returns "".
std::string ChangeInState(const CatalogueText& text, StringView translation, runtime::LocalePort& locale) {
    if (!text.isPublished) return "";
    const String published = locale.FromAnsi(locale.ToAnsi(translation));
    return published == translation ? "" : "\tpublished as " + Bracketed(published);
}

void WriteTexts(std::ostream& out, Catalogue catalogue, const TextFile& file, runtime::LocalePort& locale) {
    for (const CatalogueText& text : catalogue) {
        const std::optional<StringView> translation = file.Find(text.id);
        out << (translation ? "translated" : "missing") << '\t' << Display(runtime::Trim(text.id)) << '\t'
            << Bracketed(text.defaultText) << '\t' << (translation ? Bracketed(*translation) : "") << '\t'
            << Display(text.use) << (translation ? ChangeInState(text, *translation, locale) : "") << '\n';
    }
}

/// True if a text needs a blank between this character and a joined text. Most wide scripts put no blanks between
/// words.
bool WantsBlank(char16_t unit) {
    constexpr char16_t kFirstOfWideScripts = 0x2E80;
    return unit != u' ' && unit < kFirstOfWideScripts;
}

/// Converts twips to pixels at 96 dots per inch.
int Pixels(runtime::Twips twips) {
    constexpr runtime::Twips kTwipsAPixel = 15;
    return static_cast<int>(std::lround(twips / kTwipsAPixel));
}

/// Writes and counts the problems of a language file.
class Findings {
 public:
    Findings(std::ostream& out, Catalogue catalogue, const LanguageFileText& source)
        : out_(out),
          catalogue_(catalogue),
          name_(source.name),
          file_(source.bytes, [this](std::size_t line, LineFault fault) { faults_.emplace_back(line, fault); }),
          lines_(LinesOf(source.bytes)),
          isUtf16_(IsUtf16(source.bytes)) {}

    const TextFile& File() const { return file_; }

    std::size_t Write(runtime::LocalePort& locale, const CaptionMeasure& measure) {
        if (isUtf16_) {
            out_ << "encoding\t" << name_ << "\tis UTF-16; save it as UTF-8\n";
            return 1;
        }
        for (const auto& [line, fault] : faults_) Start("unreadable", line) << WordsFor(fault) << '\n';
        WriteWrongDirection();
        WriteUnknown();
        WriteClashes(locale);
        WriteLostKeys();
        WriteTooWide(measure);
        WriteLostBlanks();
        WriteBrokenStates();
        return count_;
    }

 private:
    /// Writes the beginning of a finding's line: the kind, the file and the line number.
    std::ostream& Start(std::string_view kind, std::size_t line) {
        ++count_;
        return out_ << kind << '\t' << name_ << ':' << line << '\t';
    }
    std::ostream& StartAt(std::string_view kind, const String& id) { return Start(kind, lines_.at(id)); }

    void WriteWrongDirection() {
        const std::optional<StringView> direction = file_.Find(services::kDirection.id);
        if (!direction || *direction == services::kDirection.defaultText || *direction == services::kRightToLeft)
            return;
        StartAt("direction", String(services::kDirection.id))
            << "is " << Bracketed(*direction) << "; only ltr and rtl are known\n";
    }

    void WriteUnknown() {
        const std::set<String> known = IdentifiersOf(catalogue_);
        std::map<String, String> unknown;
        for (const auto& [id, text] : file_.All()) {
            const String key(id);
            if (!known.contains(key) && key != services::kDirection.id) unknown.emplace(key, text);
        }
        for (const auto& [id, text] : unknown) {
            StartAt("unknown", id) << Display(id) << '\t' << Bracketed(text) << '\n';
        }
    }

    /// Returns the line of the last identifier in `ids` that has a line.
    std::size_t LineOfAny(const std::vector<String>& ids) const {
        std::size_t line = 0;
        for (const String& id : ids) {
            if (const auto found = lines_.find(id); found != lines_.end()) line = found->second;
        }
        return line;
    }

    void WriteClashes(runtime::LocalePort& locale) {
        // Maps each dialog and access key to the texts that use the key.
        std::map<std::pair<String, String>, std::vector<String>> uses;
        for (const CatalogueText& text : catalogue_) {
            if (text.dialog.empty()) continue;
            const std::optional<StringView> translation = file_.Find(text.id);
            const char16_t key = runtime::MarkedCharacter(translation.value_or(text.defaultText));
            if (key != 0) uses[{text.dialog, locale.LowerCase(String(1, key))}].push_back(runtime::Trim(text.id));
        }
        for (const auto& [place, ids] : uses) {
            if (ids.size() < 2) continue;
            Start("clash", LineOfAny(ids)) << Display(place.first) << "\tAlt+" << Display(place.second) << '\t';
            for (std::size_t i = 0; i < ids.size(); ++i) out_ << (i > 0 ? ", " : "") << Display(ids[i]);
            out_ << '\n';
        }
    }

    /// Calls `check` once for each translated text of the catalogue. Passes the translation and the English text.
    template <typename Check>
    void ForEachTranslation(Check&& check) {
        std::set<std::pair<String, String>> seen;
        for (const CatalogueText& text : catalogue_) {
            const std::optional<StringView> translation = file_.Find(text.id);
            const String id = runtime::Trim(text.id);
            if (translation && seen.emplace(id, text.defaultText).second) check(text, id, *translation);
        }
    }

    void WriteLostKeys() {
        ForEachTranslation([this](const CatalogueText& text, const String& id, StringView translation) {
            const bool isLost = !text.dialog.empty() && runtime::MarkedCharacter(text.defaultText) != 0 &&
                                runtime::MarkedCharacter(translation) == 0;
            if (isLost) StartAt("key", id) << Display(id) << "\thas no access key; put '&' before a letter\n";
        });
    }

    void WriteTooWide(const CaptionMeasure& measure) {
        // The total width of the button's edges and focus rectangle on both sides.
        constexpr runtime::Twips kEdges = 90;
        ForEachTranslation([&](const CatalogueText& text, const String& id, StringView translation) {
            if (text.buttonWidth == 0) return;
            const runtime::Twips width = measure(translation);
            if (width <= text.buttonWidth - kEdges) return;
            StartAt("wide", id) << Display(id) << "\tis " << Pixels(width)
                                << " pixels wide, and its button has room for " << Pixels(text.buttonWidth - kEdges)
                                << '\n';
        });
    }

    void WriteLostBlanks() {
        for (const String& id : IdentifiersOf(catalogue_)) {
            const std::optional<StringView> translation = file_.Find(id);
            if (!translation || translation->empty()) continue;
            const auto all = [&](auto&& holds) {
                return std::ranges::all_of(catalogue_, [&](const CatalogueText& text) {
                    return runtime::Trim(text.id) != id || (!text.defaultText.empty() && holds(text.defaultText));
                });
            };
            const bool starts = all([](const String& text) { return text.front() == u' '; });
            const bool ends = all([](const String& text) { return text.back() == u' '; });
            if (starts && WantsBlank(translation->front())) {
                StartAt("blank", id) << Display(id) << "\tmissing at the start\n";
            }
            if (ends && WantsBlank(translation->back())) {
                StartAt("blank", id) << Display(id) << "\tmissing at the end\n";
            }
        }
    }

    /// Other modules split the state at commas and quotes. If a quote is not closed, their splitter never returns.
    void WriteBrokenStates() {
        constexpr std::pair<StringView, std::string_view> kBreaking[] = {
            {u",", "a comma"}, {u"\"", "a quote mark"}, {u"\r\n", "a line break"}};
        std::set<String> published;
        for (const CatalogueText& text : catalogue_) {
            if (text.isPublished) published.insert(runtime::Trim(text.id));
        }
        for (const String& id : published) {
            const std::optional<StringView> translation = file_.Find(id);
            if (!translation) continue;
            for (const auto& [units, words] : kBreaking) {
                if (translation->find(units) == String::npos) continue;
                StartAt("state", id) << Display(id) << "\thas " << words << '\n';
            }
        }
    }

    std::ostream& out_;
    Catalogue catalogue_;
    const std::string& name_;
    std::vector<std::pair<std::size_t, LineFault>> faults_;
    const TextFile file_;
    const std::map<String, std::size_t> lines_;
    const bool isUtf16_;
    std::size_t count_ = 0;
};

}  // namespace

TextReportCounts WriteTextReport(std::ostream& out, Catalogue catalogue, const std::optional<LanguageFileText>& file,
                                 runtime::LocalePort& locale, const CaptionMeasure& measure) {
    const LanguageFileText source = file.value_or(LanguageFileText());
    Findings findings(out, catalogue, source);
    WriteTexts(out, catalogue, findings.File(), locale);
    TextReportCounts counts;
    counts.findings = findings.Write(locale, measure);
    const std::set<String> known = IdentifiersOf(catalogue);
    counts.missing = static_cast<std::size_t>(
        std::ranges::count_if(known, [&](const String& id) { return !findings.File().Find(id); }));
    out << known.size() - counts.missing << " of " << known.size() << " identifiers translated\n";
    return counts;
}

bool IsUtf16(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return true;
    return bytes.size() >= 2 && (bytes[0] == '\0') != (bytes[1] == '\0');
}

void WriteTextTemplate(std::ostream& out, Catalogue catalogue) {
    out << "# Texts of the back process: identifier = text, in UTF-8. A blank at either end of a text is written \\s,\n"
           "# a line break \\n, a tab \\t, a backslash \\\\. The letter after & is the access key.\n"
           "# In a language that is read from right to left, a line mirrors the dialogs: direction = rtl\n";
    std::set<String> written;
    for (const CatalogueText& text : catalogue) {
        const String id = runtime::Trim(text.id);
        if (written.contains(id)) continue;
        written.insert(id);
        out << '\n';
        for (const CatalogueText& use : catalogue) {
            if (runtime::Trim(use.id) == id)
                out << "# " << Bracketed(use.defaultText) << " " << Display(use.use) << '\n';
        }
        out << runtime::ToUtf8(id) << " = " << runtime::ToUtf8(kernel_api::builtin::EscapeText(text.defaultText))
            << '\n';
    }
}

}  // namespace tools
