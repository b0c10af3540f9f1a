// Implements the entries of the development kernel. Any thread may call them. Texts are zero-terminated bytes in the
// system's ANSI code page. They are stored unchanged. A string that was set to "" exists: E_GetString returns the
// address of an empty text, not 0.
//
// No exception leaves an entry. If an entry fails, it returns its failure value.
#include <atomic>
#include <cstring>

#include "devkernel/SectionMemory.h"
#include "devkernel/StringStore.h"
#include "devkernel/ThreadTexts.h"

namespace {

using namespace devkernel;

static_assert(sizeof(long) == sizeof(void*), "addresses are handed out as 32-bit numbers");

constexpr long kOpenDesign = 1;
constexpr const char* kDesignNameKey = "DESIGN_NAME";
/// Prefixes of names in ThreadTexts. O_GetName and E_GetString use different prefixes, so that a text of one function
/// does not replace a text of the other function with the same key.
constexpr char kStringPrefix = 'E';
constexpr char kNamePrefix = 'O';

struct Connection {
    SectionMemory memory{DevelopmentStoreName(), kDevelopmentStoreCapacity};
    StringStore strings{memory};
    ThreadTexts texts;
};

/// Null before the first use. DllMain reads this pointer and does not call Connected(), because it must not
/// connect while it holds the loader's lock.
std::atomic<Connection*> connection = nullptr;

/// Keeps the library in memory until the process ends, because the compiler's static runtime frees neither its TLS slot
/// nor its handles when a DLL is unloaded. A program may load and free the library many times.
void PinLibrary() {
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(&PinLibrary), &library);
}

Connection* Connect() {
    PinLibrary();
    connection = new Connection;
    return connection;
}

/// Returns the process's connection. The first call makes the connection. If that fails, the next call tries again. The
/// connection is never destroyed.
Connection& Connected() {
    static Connection& connected = *Connect();
    return connected;
}

long TextOf(std::string_view key, char prefix) {
    Connection& connected = Connected();
    const std::string name = prefix + std::string(key);
    const DWORD thread = GetCurrentThreadId();
    auto text = connected.strings.Get(key);
    if (!text) {
        connected.texts.Drop(thread, name);
        return 0;
    }
    return reinterpret_cast<long>(connected.texts.Store(thread, name, *std::move(text)));
}

long CopyKey(const std::optional<std::string>& key, char* buffer, long size) {
    if (!key) return 0;
    const auto needed = static_cast<long>(key->size() + 1);
    if (buffer && needed <= size) std::memcpy(buffer, key->c_str(), key->size() + 1);
    return needed;
}

template <typename Body>
long Guarded(long failure, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

}  // namespace

extern "C" {

/// Stores `value` under `key` and returns 1. On failure, returns 0 and keeps the old value.
long __stdcall E_SetString(const char* key, const char* value) {
    if (!key || !value) return 0;
    return Guarded(0, [&] { return Connected().strings.Set(key, value) ? 1L : 0L; });
}

/// Returns the address of the text under `key`, or 0 if there is no text. The address is valid until the same thread
/// reads the same key again or ends.
long __stdcall E_GetString(const char* key) {
    if (!key) return 0;
    return Guarded(0, [&] { return TextOf(key, kStringPrefix); });
}

/// Returns the handle of the open design.
long __stdcall DB_DataBase() {
    return kOpenDesign;
}

/// Returns the address of the object's name, or 0 if there is no name. The address is valid until the same thread reads
/// the same name again or ends.
long __stdcall O_GetName(long handle) {
    if (handle != kOpenDesign) return 0;
    return Guarded(0, [] { return TextOf(kDesignNameKey, kNamePrefix); });
}

/// Lists the keys in byte order. Copies the first key after `afterKey` to `keyBuffer`. If `afterKey` is null, copies
/// the first of all keys. `size` is the buffer's size in bytes. If the buffer is null or too small, it stays unchanged.
/// Returns the key's size in bytes including its NUL. Returns 0 after the last key, and -1 if the strings cannot be
/// reached.
long __stdcall QmxDev_NextString(const char* afterKey, char* keyBuffer, long size) {
    return Guarded(-1, [&] {
        StringStore& strings = Connected().strings;
        return CopyKey(afterKey ? strings.KeyAfter(afterKey) : strings.FirstKey(), keyBuffer, size);
    });
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_THREAD_DETACH && connection) {
        Guarded(0, [] {
            connection.load()->texts.DropAll(GetCurrentThreadId());
            return 0L;
        });
    }
    return TRUE;
}

}  // extern "C"
