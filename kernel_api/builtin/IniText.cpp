#include "kernel_api/builtin/IniText.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "kernel_api/builtin/Lines.h"

namespace kernel_api::builtin {
namespace {

StringView WithoutQuotes(StringView value) {
    const bool isQuoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

String FromUtf16Bytes(std::string_view bytes, bool lowFirst) {
    String text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(lowFirst ? first | (second << 8) : second | (first << 8));
    }
    return text;
}

}  // namespace

String DecodeIni(std::string_view bytes, runtime::LocalePort& locale) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return runtime::FromUtf8(bytes.substr(3));
    if (bytes.starts_with("\xFF\xFE")) return FromUtf16Bytes(bytes.substr(2), true);
    if (bytes.starts_with("\xFE\xFF")) return FromUtf16Bytes(bytes.substr(2), false);
    if (std::optional<String> text = runtime::FromStrictUtf8(bytes)) return *std::move(text);
    return locale.FromAnsi(bytes);
}

std::string_view IniProblem(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        return runtime::FromStrictUtf8(bytes.substr(3)) ? "" : "it has a UTF-8 byte order mark, but is not valid UTF-8";
    }
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return bytes.size() % 2 == 0 ? "" : "it has a UTF-16 byte order mark, but ends within a character";
    }
    if (bytes.find('\0') == std::string_view::npos) return "";
    return "it has NUL characters: UTF-16 without a byte order mark, or not a text file";
}

IniText::IniText(runtime::LocalePort& locale, StringView text) : locale_(&locale) {
    Section* section = nullptr;
    while (!text.empty()) {
        const StringView line = Trimmed(TakeLine(text));
        if (line.starts_with(u';')) continue;
        if (!line.starts_with(u'[')) {
            if (section) AddSetting(*section, line);
        } else if (const auto end = line.find(u']'); end != StringView::npos) {
            section = &sections_[locale_->LowerCase(Trimmed(line.substr(1, end - 1)))];
        }
    }
}

void IniText::AddSetting(Section& section, StringView line) {
    const auto equals = line.find(u'=');
    if (equals == StringView::npos) return;
    const StringView key = Trimmed(line.substr(0, equals));
    if (key.empty()) return;
    section.try_emplace(locale_->LowerCase(key), WithoutQuotes(Trimmed(line.substr(equals + 1))));
}

const String* IniText::Find(StringView section, StringView key) const {
    const auto foundSection = sections_.find(locale_->LowerCase(section));
    if (foundSection == sections_.end()) return nullptr;
    const auto found = foundSection->second.find(locale_->LowerCase(key));
    return found == foundSection->second.end() ? nullptr : &found->second;
}

}  // namespace kernel_api::builtin
