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

/// Returns the value as text, including terminators. Returns nullopt if the value does not exist or is not text.
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
    OpenToRead(SectionPath(application, section));
    std::optional<String> text = opened_ ? QueryText(opened_.Get(), String(key)) : std::nullopt;
    if (openedPath_.empty()) Forget();
    if (text && text->ends_with(u'\0')) text->pop_back();
    return text;
}

void RegistrySettings::OpenToRead(const String& path) {
    if (IsOpened(path, KEY_QUERY_VALUE)) return;
    HKEY opened = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, Wide(path), 0, KEY_QUERY_VALUE, &opened);
    Keep(opened, path, KEY_QUERY_VALUE);
}

LSTATUS RegistrySettings::Write(const String& path, const String& key, const String& value) {
    if (!IsOpened(path, KEY_SET_VALUE)) {
        HKEY opened = nullptr;
        const LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, Wide(path), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                               KEY_SET_VALUE, nullptr, &opened, nullptr);
        Keep(opened, path, KEY_SET_VALUE);
        if (status != ERROR_SUCCESS) return status;
    }
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    return RegSetValueExW(opened_.Get(), Wide(key), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), bytes);
}

void RegistrySettings::Keep(HKEY opened, const String& path, REGSAM access) {
    Forget();
    opened_.Reset(opened);
    if (!Operation::KeepUntilEnd([this] { Forget(); })) return;
    openedPath_ = path;
    openedAccess_ = access;
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
    const String path = SectionPath(application, section);
    LSTATUS status = Write(path, String(key), String(value));
    if (status == ERROR_KEY_DELETED) {  // another program deleted the section after this operation had opened it
        Forget();
        status = Write(path, String(key), String(value));
    }
    if (openedPath_.empty() || status != ERROR_SUCCESS) Forget();
    if (status != ERROR_SUCCESS) {
        throw ErrorAbout(kInvalidProcedureCall, u"HKEY_CURRENT_USER\\" + path + u" cannot be written (system error " +
                                                    FromAscii(std::to_string(status)) + u")");
    }
}

}  // namespace runtime::win32
