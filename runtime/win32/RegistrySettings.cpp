#include "runtime/win32/RegistrySettings.h"

#include <limits>

#include "runtime/Error.h"
#include "runtime/Operation.h"

namespace runtime::win32 {
namespace {

constexpr StringView kRoot = u"Software\\VB and VBA Program Settings\\";

bool IsName(StringView name) {
    return !name.empty() && name.find(u'\0') == StringView::npos;
}

String SectionPath(StringView application, StringView section) {
    return String(kRoot).append(application).append(u"\\").append(section);
}

/// Returns the value as text, including terminators. Returns no value if the value does not exist or is not text.
std::optional<String> QueryText(HKEY key, const String& name) {
    String text;
    DWORD bytes = 0;
    DWORD type = REG_NONE;
    LSTATUS status = ERROR_MORE_DATA;
    // Another program may make the value longer between two calls.
    while (status == ERROR_MORE_DATA) {
        text.resize((bytes + 1) / sizeof(char16_t));
        bytes = static_cast<DWORD>(text.size() * sizeof(char16_t));
        status = RegQueryValueExW(key, Wide(name), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes);
    }
    if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ)) return std::nullopt;
    text.resize(bytes / sizeof(char16_t));
    return text;
}

}  // namespace

std::optional<String> RegistrySettings::Get(StringView application, StringView section, StringView key) {
    if (!IsName(application) || !IsName(section) || !IsName(key)) return std::nullopt;
    const HKEY opened = SectionToRead(SectionPath(application, section));
    std::optional<String> text = opened ? QueryText(opened, String(key)) : std::nullopt;
    if (openedPath_.empty()) Forget();
    if (text && text->ends_with(u'\0')) text->pop_back();
    return text;
}

HKEY RegistrySettings::SectionToRead(const String& path) {
    if (path == openedPath_) return opened_.Get();
    Forget();
    HKEY opened = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, Wide(path), 0, KEY_QUERY_VALUE, &opened);
    opened_.Reset(opened);
    if (Operation::KeepUntilEnd([this] { Forget(); })) openedPath_ = path;
    return opened;
}

void RegistrySettings::Forget() {
    openedPath_.clear();
    opened_.Reset();
}

void RegistrySettings::Save(StringView application, StringView section, StringView key, StringView value) {
    constexpr std::size_t kMaxLength = std::numeric_limits<DWORD>::max() / sizeof(char16_t) - 1;
    if (!IsName(application) || !IsName(section) || !IsName(key)) {
        const String path = String(application) + u'\\' + String(section) + u'\\' + String(key);
        throw ErrorAbout(kInvalidProcedureCall, u"'" + path + u"' is not a valid setting name");
    }
    if (value.size() > kMaxLength) {
        throw ErrorAbout(kInvalidProcedureCall, u"the value of '" + String(key) + u"' is too long");
    }
    Forget();  // this call may create the section
    HKEY opened = nullptr;
    LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, Wide(SectionPath(application, section)), 0, nullptr,
                                     REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr, &opened, nullptr);
    const RegistryKey owner(opened);
    if (status == ERROR_SUCCESS) {
        const String terminated(value);
        const auto bytes = static_cast<DWORD>((terminated.size() + 1) * sizeof(char16_t));
        status = RegSetValueExW(opened, Wide(String(key)), 0, REG_SZ, reinterpret_cast<const BYTE*>(terminated.c_str()),
                                bytes);
    }
    if (status != ERROR_SUCCESS) {
        throw ErrorAbout(kInvalidProcedureCall, u"HKEY_CURRENT_USER\\" + SectionPath(application, section) +
                                                    u" cannot be written (system error " +
                                                    FromAscii(std::to_string(status)) + u")");
    }
}

}  // namespace runtime::win32
