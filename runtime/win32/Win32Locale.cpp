#include "runtime/win32/Win32Locale.h"

#include <cstring>
#include <limits>

#include "runtime/Error.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {
namespace {

int Length(std::size_t length) {
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw Error(kOutOfMemory);
    return static_cast<int>(length);
}

/// Checks the length that a conversion returned. 0 means failure, because empty texts are not converted.
std::size_t Checked(int length) {
    if (length <= 0) throw Error(kOutOfMemory);
    return static_cast<std::size_t>(length);
}

constexpr int kSignatureCharacters = 32;
static_assert(sizeof(LOCALESIGNATURE) == kSignatureCharacters);

}  // namespace

std::string Win32Locale::ToAnsi(StringView text) {
    if (text.empty()) return {};
    const auto* const source = Wide(text.data());
    const int length = Length(text.size());
    std::string bytes(Checked(WideCharToMultiByte(CP_ACP, 0, source, length, nullptr, 0, nullptr, nullptr)), '\0');
    Checked(WideCharToMultiByte(CP_ACP, 0, source, length, bytes.data(), Length(bytes.size()), nullptr, nullptr));
    return bytes;
}

String Win32Locale::FromAnsi(std::string_view bytes) {
    if (bytes.empty()) return {};
    const int length = Length(bytes.size());
    String text(Checked(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0)), u'\0');
    Checked(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, Wide(text.data()), Length(text.size())));
    return text;
}

std::int32_t Win32Locale::SystemDefaultLcid() {
    return static_cast<std::int32_t>(GetSystemDefaultLCID());
}

std::int32_t Win32Locale::UserDefaultLcid() {
    return static_cast<std::int32_t>(GetUserDefaultLCID());
}

std::optional<std::int16_t> Win32Locale::CharsetOf(std::int32_t lcid) {
    // The signature is binary data. The system counts the length of its buffer in bytes.
    char bytes[kSignatureCharacters] = {};
    if (GetLocaleInfoA(static_cast<LCID>(lcid), LOCALE_FONTSIGNATURE, bytes, kSignatureCharacters) == 0) return {};
    LOCALESIGNATURE signature{};
    std::memcpy(&signature, bytes, sizeof signature);
    CHARSETINFO found{};
    if (!TranslateCharsetInfo(signature.lsCsbDefault, &found, TCI_SRCFONTSIG)) return {};
    return static_cast<std::int16_t>(found.ciCharset);
}

String Win32Locale::UpperCase(StringView text) {
    String result(text);
    CharUpperBuffW(Wide(result.data()), static_cast<DWORD>(result.size()));
    return result;
}

String Win32Locale::LowerCase(StringView text) {
    String result(text);
    CharLowerBuffW(Wide(result.data()), static_cast<DWORD>(result.size()));
    return result;
}

}  // namespace runtime::win32
