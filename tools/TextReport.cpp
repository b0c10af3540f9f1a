#include "tools/TextReport.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <vector>

#include "kernel_api/dev/TextFile.h"
#include "runtime/Control.h"
#include "tools/Display.h"

namespace tools {

namespace {

using host::CatalogueText;
using kernel_api::dev::LineFault;
using kernel_api::dev::TextFile;
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
            return "has an identifier that stands above already";
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

void WriteTexts(std::ostream& out, Catalogue catalogue, const TextFile& file) {
    for (const CatalogueText& text : catalogue) {
        const String* const translation = file.Find(text.id);
        out << (translation ? "translated" : "missing") << '\t' << Display(runtime::Trim(text.id)) << '\t'
            << Bracketed(text.defaultText) << '\t' << (translation ? Bracketed(*translation) : "") << '\t'
            << Display(text.use) << '\n';
    }
}

void WriteUnknown(std::ostream& out, const std::set<String>& known, const TextFile& file) {
    std::map<StringView, StringView> unknown;
    for (const auto& [id, text] : file.All()) {
        if (!known.contains(id)) unknown.emplace(id, text);
    }
    for (const auto& [id, text] : unknown) out << "unknown\t" << Display(id) << '\t' << Bracketed(text) << '\n';
}

/// Which texts of one dialog answer to one key.
using KeyUse = std::map<std::pair<String, String>, std::vector<String>>;

void WriteClashes(std::ostream& out, Catalogue catalogue, const TextFile& file, runtime::LocalePort& locale) {
    KeyUse uses;
    for (const CatalogueText& text : catalogue) {
        if (text.dialog.empty()) continue;
        const String* const translation = file.Find(text.id);
        const char16_t key = runtime::MarkedCharacter(translation ? *translation : text.defaultText);
        if (key != 0) uses[{text.dialog, locale.LowerCase(String(1, key))}].push_back(runtime::Trim(text.id));
    }
    for (const auto& [place, ids] : uses) {
        if (ids.size() < 2) continue;
        out << "clash\t" << Display(place.first) << "\tAlt+" << Display(place.second) << '\t';
        for (std::size_t i = 0; i < ids.size(); ++i) out << (i > 0 ? ", " : "") << Display(ids[i]);
        out << '\n';
    }
}

/// Scripts that put no blanks between words need none here either.
bool WantsBlank(char16_t unit) {
    constexpr char16_t kFirstOfWideScripts = 0x2E80;
    return unit != u' ' && unit < kFirstOfWideScripts;
}

void WriteLostBlanks(std::ostream& out, Catalogue catalogue, const TextFile& file) {
    for (const String& id : IdentifiersOf(catalogue)) {
        const String* const translation = file.Find(id);
        if (!translation || translation->empty()) continue;
        const auto all = [&](auto&& holds) {
            return std::ranges::all_of(catalogue, [&](const CatalogueText& text) {
                return runtime::Trim(text.id) != id || (!text.defaultText.empty() && holds(text.defaultText));
            });
        };
        const bool starts = all([](const String& text) { return text.front() == u' '; });
        const bool ends = all([](const String& text) { return text.back() == u' '; });
        if (starts && WantsBlank(translation->front())) out << "blank\t" << Display(id) << "\tmissing at the start\n";
        if (ends && WantsBlank(translation->back())) out << "blank\t" << Display(id) << "\tmissing at the end\n";
    }
}

/// Other modules take the state apart at commas and quote marks; one that they cannot read keeps them waiting.
void WriteBrokenStates(std::ostream& out, Catalogue catalogue, const TextFile& file) {
    constexpr std::pair<StringView, std::string_view> kBreaking[] = {
        {u",", "a comma"}, {u"\"", "a quote mark"}, {u"\r\n", "a line break"}};
    std::set<String> published;
    for (const CatalogueText& text : catalogue) {
        if (text.isPublished) published.insert(runtime::Trim(text.id));
    }
    for (const String& id : published) {
        const String* const translation = file.Find(id);
        if (!translation) continue;
        for (const auto& [units, words] : kBreaking) {
            if (translation->find(units) == String::npos) continue;
            out << "state\t" << Display(id) << "\thas " << words << '\n';
        }
    }
}

}  // namespace

std::size_t WriteTextReport(std::ostream& out, Catalogue catalogue, const std::optional<std::string>& bytes,
                            runtime::LocalePort& locale) {
    std::vector<std::pair<std::size_t, LineFault>> faults;
    const TextFile file(bytes ? std::string_view(*bytes) : std::string_view(),
                        [&faults](std::size_t line, LineFault fault) { faults.emplace_back(line, fault); });
    const std::set<String> known = IdentifiersOf(catalogue);
    WriteTexts(out, catalogue, file);
    for (const auto& [line, fault] : faults) out << "unreadable\tline " << line << '\t' << WordsFor(fault) << '\n';
    WriteUnknown(out, known, file);
    WriteClashes(out, catalogue, file, locale);
    WriteLostBlanks(out, catalogue, file);
    WriteBrokenStates(out, catalogue, file);
    const auto missing =
        static_cast<std::size_t>(std::ranges::count_if(known, [&file](const String& id) { return !file.Find(id); }));
    out << known.size() - missing << " of " << known.size() << " identifiers translated\n";
    return missing;
}

bool IsUtf16(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return true;
    return bytes.size() >= 2 && (bytes[0] == '\0') != (bytes[1] == '\0');
}

void WriteTextTemplate(std::ostream& out, Catalogue catalogue) {
    out << "# Texts of the back process: identifier = text, in UTF-8. A blank at either end of a text is written \\s,\n"
           "# a line break \\n, a tab \\t, a backslash \\\\. The letter after & is the access key.\n";
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
        out << runtime::ToUtf8(id) << " = " << runtime::ToUtf8(kernel_api::dev::EscapeText(text.defaultText)) << '\n';
    }
}

}  // namespace tools
