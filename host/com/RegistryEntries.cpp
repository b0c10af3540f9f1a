#include "host/com/RegistryEntries.h"

#include <algorithm>
#include <utility>

#include "host/com/Guard.h"
#include "runtime/win32/Handle.h"

namespace host::com {
namespace {

using runtime::win32::RegistryKey;
using runtime::win32::Wide;

void CheckWin32(LSTATUS status) {
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

/// Returns the path of the parent key; empty for a key directly below the root.
String Parent(const String& key) {
    const auto separator = key.rfind(u'\\');
    return separator == String::npos ? String() : key.substr(0, separator);
}

bool IsEmpty(HKEY key) {
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS status = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                            nullptr, nullptr, nullptr);
    return status == ERROR_SUCCESS && keys == 0 && values == 0;
}

RegistryKey Open(HKEY root, const String& path) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(root, Wide(path), 0, KEY_READ, &key);
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return {};
    CheckWin32(status);
    return RegistryKey(key);
}

/// Deletes the key `path` if it is empty. Then deletes each parent that becomes empty, except the root.
void DeleteEmptyKeys(HKEY root, String path) {
    for (; !path.empty(); path = Parent(path)) {
        const RegistryKey key = Open(root, path);
        if (!key) continue;
        if (!IsEmpty(key.Get())) return;
        CheckWin32(RegDeleteKeyW(root, Wide(path)));
    }
}

void RemoveEntry(HKEY root, const RegistryEntry& entry) {
    const LSTATUS status = RegDeleteKeyValueW(root, Wide(entry.key), Wide(entry.name));
    if (status != ERROR_FILE_NOT_FOUND && status != ERROR_PATH_NOT_FOUND) CheckWin32(status);
    DeleteEmptyKeys(root, entry.key);
}

/// One written value and the earlier value, which Undo restores.
class Change {
 public:
    Change(HKEY root, const RegistryEntry& entry) : root_(root), entry_(entry) { Remember(); }

    void Write() const {
        const auto bytes = static_cast<DWORD>((entry_.value.size() + 1) * sizeof(char16_t));
        CheckWin32(RegSetKeyValueW(root_, Wide(entry_.key), Wide(entry_.name), REG_SZ, entry_.value.c_str(), bytes));
    }

    /// Restores the earlier value and ignores errors, because the original error is reported.
    void Undo() const {
        if (before_) {
            RegSetKeyValueW(root_, Wide(entry_.key), Wide(entry_.name), type_, before_->data(),
                            static_cast<DWORD>(before_->size()));
            return;
        }
        RegDeleteKeyValueW(root_, Wide(entry_.key), Wide(entry_.name));
        for (String path = entry_.key; path.size() > deepestBefore_.size(); path = Parent(path)) {
            RegDeleteKeyW(root_, Wide(path));
        }
    }

 private:
    void Remember() {
        String path = entry_.key;
        while (!path.empty() && !Open(root_, path)) path = Parent(path);
        deepestBefore_ = path;
        const RegistryKey key = Open(root_, entry_.key);
        DWORD bytes = 0;
        if (!key || RegQueryValueExW(key.Get(), Wide(entry_.name), nullptr, &type_, nullptr, &bytes) != ERROR_SUCCESS) {
            return;
        }
        std::vector<BYTE> data(bytes);
        CheckWin32(RegQueryValueExW(key.Get(), Wide(entry_.name), nullptr, &type_, data.data(), &bytes));
        before_ = std::move(data);
    }

    HKEY root_;
    const RegistryEntry& entry_;
    String deepestBefore_;  ///< the key, or its nearest parent that existed before
    std::optional<std::vector<BYTE>> before_;
    DWORD type_ = REG_NONE;
};

}  // namespace

void WriteEntries(HKEY root, const std::vector<RegistryEntry>& entries) {
    std::vector<Change> changes;
    try {
        for (const RegistryEntry& entry : entries) {
            changes.emplace_back(root, entry).Write();
        }
    } catch (...) {
        std::for_each(changes.rbegin(), changes.rend(), [](const Change& change) { change.Undo(); });
        throw;
    }
}

void RemoveEntries(HKEY root, const std::vector<RegistryEntry>& entries) {
    HRESULT firstFailure = S_OK;
    std::for_each(entries.rbegin(), entries.rend(), [&](const RegistryEntry& entry) {
        const HRESULT result = Guarded([&] {
            RemoveEntry(root, entry);
            return S_OK;
        });
        if (FAILED(result) && SUCCEEDED(firstFailure)) firstFailure = result;
    });
    Check(firstFailure);
}

}  // namespace host::com
