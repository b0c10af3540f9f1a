// Fuzzes INI files with any bytes. Reading must end, and the reader must find a setting in an appended section.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "kernel_api/builtin/IniText.h"
#include "runtime/headless/PlainLocale.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kernel_api::builtin;
    runtime::headless::PlainLocale locale;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    String text = DecodeIni(bytes, locale);
    const IniText settings(locale, text);
    settings.Find(u"Marlento", u"Ver");
    settings.Find(text, text);

    // Append a section with one setting. Find must return this setting, or an earlier setting with the same section and
    // key.
    const bool nameIsTaken = settings.Find(u"own section", u"k") != nullptr;
    text += u"\n[own section]\nk=v";
    const IniText extended(locale, text);
    const String* const value = extended.Find(u"Own Section", u"K");
    if (!value || (!nameIsTaken && *value != u"v")) std::abort();
    return 0;
}
