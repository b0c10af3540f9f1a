#include "tests/com/Hives.h"

namespace tests::com {
namespace {

using runtime::win32::RegistryKey;
using runtime::win32::ToString;

constexpr DWORD kMaxName = 16384;

void AddValues(HKEY key, const std::u16string& path, Hive& hive) {
    std::wstring name(kMaxName, L'\0');
    for (DWORD i = 0;; ++i) {
        DWORD length = kMaxName;
        DWORD type = 0;
        DWORD bytes = 0;
        if (RegEnumValueW(key, i, name.data(), &length, nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS) return;
        std::string data(bytes, '\0');
        RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &bytes);
        hive[path + ToString(name.c_str(), length)] = std::to_string(type) + ':' + data;
    }
}

void AddKey(HKEY parent, const wchar_t* name, const std::u16string& path, Hive& hive) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(parent, name, 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    const RegistryKey key(opened);
    hive[path] = {};
    AddValues(opened, path, hive);
    std::wstring below(kMaxName, L'\0');
    for (DWORD i = 0;; ++i) {
        DWORD length = kMaxName;
        const LSTATUS status = RegEnumKeyExW(opened, i, below.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS) return;
        AddKey(opened, below.c_str(), path + ToString(below.c_str(), length) + u'\\', hive);
    }
}

}  // namespace

Hive Snapshot(HKEY root, const wchar_t* path) {
    Hive hive;
    AddKey(root, path, {}, hive);
    return hive;
}

}  // namespace tests::com
