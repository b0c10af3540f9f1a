// The development kernel's entries, as the suite's modules call them. Texts are zero-terminated bytes in the system's
// ANSI code page; they are kept as they come. A string set to "" exists: its address is that of an empty text.
//
// No entry lets an exception out: what cannot be done is answered with the entry's failure value.
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
/// Names of the handed out texts: an object's name must not take the place of the string that it comes from.
constexpr char kStringPrefix = 'E';
constexpr char kNamePrefix = 'O';

/// What a process has while it uses the strings.
struct Connection {
    SectionMemory memory{DevelopmentStoreName(), kDevelopmentStoreCapacity};
    StringStore strings{memory};
    ThreadTexts texts;
};

/// For the end of a thread, which must make no connection: the loader's lock is held then.
std::atomic<Connection*> connection = nullptr;

/// The library stays in memory once it is used: the compiler's static runtime gives back neither its TLS slot nor its
/// handles when a DLL is unloaded, and a program may load and free it many times.
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

/// Made at the first call, and tried again at the next when it could not be made. It is never destroyed.
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
    return reinterpret_cast<long>(connected.texts.Keep(thread, name, *std::move(text)));
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

/// Non-zero when `value` is stored under `key`; 0 leaves what was there.
long __stdcall E_SetString(const char* key, const char* value) {
    if (!key || !value) return 0;
    return Guarded(0, [&] { return Connected().strings.Set(key, value) ? 1L : 0L; });
}

/// Address of the text under `key`, 0 when there is none. It holds until this thread asks for the same key again.
long __stdcall E_GetString(const char* key) {
    if (!key) return 0;
    return Guarded(0, [&] { return TextOf(key, kStringPrefix); });
}

/// Handle of the open design.
long __stdcall DB_DataBase() {
    return kOpenDesign;
}

/// Address of the object's name, 0 when there is none. It holds until this thread asks for it again.
long __stdcall O_GetName(long handle) {
    if (handle != kOpenDesign) return 0;
    return Guarded(0, [] { return TextOf(kDesignNameKey, kNamePrefix); });
}

/// Lists the keys in byte order: the first one for a null `afterKey`, else the next one after it. The bytes that the
/// key takes with its NUL, 0 after the last key, -1 when the strings cannot be reached. `keyBuffer` of `size` bytes
/// is left alone when it is null or too small.
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
