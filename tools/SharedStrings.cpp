// Reads and writes the suite's shared strings.
#include "tools/SharedStrings.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "runtime/Error.h"

namespace tools {

namespace {

constexpr const char* kListEntry = "QmxDev_NextString";
/// Writes the key after `afterKey` (the first key for null) into the buffer. Returns the key's length with the
/// terminating NUL, 0 after the last key, or a negative number if the kernel cannot reach its strings. If the buffer is
/// too small, the buffer stays unchanged.
using NextString = long __stdcall(const char* afterKey, char* keyBuffer, long size);

/// Returns the address of a function of the library at `path`. The library must be loaded. The function needs the full
/// path, because the process may have loaded another library with the same name.
NextString& ListEntry(const String& path) {
    const FARPROC entry = GetProcAddress(GetModuleHandleW(runtime::win32::Wide(path)), kListEntry);
    if (entry == nullptr) {
        throw runtime::ErrorAbout(
            runtime::kDllEntryPointNotFound,
            runtime::FromAscii(kListEntry) + u"; this kernel does not list its strings, ask it for one with 'get'");
    }
    return *reinterpret_cast<NextString*>(reinterpret_cast<void*>(entry));
}

/// Returns the key after `key`, or the first key if `key` is null. Returns no value after the last key.
std::optional<std::string> KeyAfter(NextString& nextString, const char* key) {
    std::string buffer(64, '\0');
    for (;;) {
        const auto size = static_cast<long>(buffer.size());
        const long needed = nextString(key, buffer.data(), size);
        if (needed < 0)
            throw std::runtime_error(
                "the kernel cannot reach its strings; end the programs that use it, and try again");
        if (needed == 0) return std::nullopt;
        const auto bytes = static_cast<std::size_t>(needed);
        if (needed <= size) return buffer.substr(0, bytes - 1);
        buffer.resize(bytes);
    }
}

}  // namespace

std::optional<String> SharedStrings::Get(StringView key) {
    const kernel_api::TextPointer text = kernel_->E_GetString(key);
    if (text <= 0) return std::nullopt;
    return locale_.FromAnsi(reinterpret_cast<const char*>(text));
}

void SharedStrings::Set(StringView key, StringView value) {
    String text(value);
    kernel_->E_SetString(key, text);
}

std::map<String, String> SharedStrings::All() {
    std::map<String, String> strings;
    NextString& nextString = ListEntry(kernel_->Path());
    std::optional<std::string> key = KeyAfter(nextString, nullptr);
    while (key) {
        const String name = locale_.FromAnsi(*key);
        // Another process may have removed the string after its key was listed.
        if (std::optional<String> value = Get(name)) strings.emplace(name, *std::move(value));
        key = KeyAfter(nextString, key->c_str());
    }
    return strings;
}

}  // namespace tools
