#include "host/com/Registration.h"

#include <utility>

#include "host/com/ComHeaders.h"
#include "host/com/Guard.h"
#include "host/com/Module.h"
#include "runtime/win32/Handle.h"

namespace host::com {
namespace {

using runtime::StringView;

constexpr StringView kProgId = u"K4TBackProcess.clsQmxBackProcess";
constexpr StringView kVersion = u"1.0";
constexpr StringView kLibraryName = u"Pelorix Back process Manager";
// The system's two marshallers. The first marshaller passes calls of dual interfaces, whose descriptions it reads
// from the type library. The second marshaller passes late-bound calls.
constexpr StringView kTypeLibraryMarshaller = u"{00020424-0000-0000-C000-000000000046}";
constexpr StringView kDispatchMarshaller = u"{00020420-0000-0000-C000-000000000046}";

String Text(REFGUID guid) {
    constexpr int kCapacity = 39;
    wchar_t text[kCapacity];
    StringFromGUID2(guid, text, kCapacity);
    return runtime::win32::ToString(text);
}

String operator/(const String& key, StringView below) {
    return key + u'\\' + String(below);
}

class EntryList {
 public:
    void Add(String key, StringView name, StringView value) {
        entries_.push_back({std::move(key), String(name), String(value)});
    }
    void AddDefault(String key, StringView value) { Add(std::move(key), {}, value); }
    std::vector<RegistryEntry> Take() { return std::move(entries_); }

 private:
    std::vector<RegistryEntry> entries_;
};

void AddClass(EntryList& list, const String& modulePath) {
    const String classId = Text(CLSID_clsQmxBackProcess);
    const String progIdKey(kProgId);
    list.AddDefault(progIdKey, kProgId);
    list.AddDefault(progIdKey / u"CLSID", classId);

    const String key = String(u"CLSID") / classId;
    list.AddDefault(key, kProgId);
    list.AddDefault(key / u"InprocServer32", modulePath);
    list.Add(key / u"InprocServer32", u"ThreadingModel", u"Apartment");
    list.AddDefault(key / u"ProgID", kProgId);
    list.AddDefault(key / u"TypeLib", Text(LIBID_K4TBackProcess));
    list.AddDefault(key / u"Version", kVersion);
}

void AddTypeLibrary(EntryList& list, const String& modulePath) {
    const String key = String(u"TypeLib") / Text(LIBID_K4TBackProcess) / kVersion;
    list.AddDefault(key, kLibraryName);
    list.AddDefault(key / u"409" / u"win32", modulePath);
    // Marshalling searches for the library under the user's language, then under the neutral language.
    list.AddDefault(key / u"0" / u"win32", modulePath);
    list.AddDefault(key / u"FLAGS", u"0");
    list.AddDefault(key / u"HELPDIR", modulePath.substr(0, modulePath.rfind(u'\\')));
}

void AddInterface(EntryList& list, REFIID iid, StringView name, StringView marshaller) {
    const String key = String(u"Interface") / Text(iid);
    list.AddDefault(key, name);
    list.AddDefault(key / u"ProxyStubClsid32", marshaller);
    list.AddDefault(key / u"TypeLib", Text(LIBID_K4TBackProcess));
    list.Add(key / u"TypeLib", u"Version", kVersion);
}

/// Adds the entry of the marshaller for 16-bit programs. Register does not write this entry. LoadTypeLibEx and
/// RegisterTypeLib write it, so Unregister removes it.
void AddInterfaceOfTypeLibrary(EntryList& list, REFIID iid, StringView marshaller) {
    list.AddDefault(String(u"Interface") / Text(iid) / u"ProxyStubClsid", marshaller);
}

/// Throws if COM cannot load the component from this path. COM reads the path, with its NUL, into a buffer of MAX_PATH
/// characters.
void RequireLoadable(const String& modulePath) {
    if (modulePath.size() < MAX_PATH) return;
    throw ComError(HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE),
                   u"the path " + modulePath +
                       u" has more than 259 characters, so COM cannot load the component "
                       u"from it; install it in a folder with a shorter path");
}

runtime::win32::RegistryKey OpenClasses(RegistrationScope scope) {
    const HKEY hive = scope == RegistrationScope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    HKEY classes = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(hive, L"Software\\Classes", 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &classes, nullptr);
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
    return runtime::win32::RegistryKey(classes);
}

}  // namespace

std::vector<RegistryEntry> RegistrationEntries(const String& modulePath) {
    EntryList list;
    AddClass(list, modulePath);
    AddTypeLibrary(list, modulePath);
    AddInterface(list, IID__clsQmxBackProcess, u"_clsQmxBackProcess", kTypeLibraryMarshaller);
    AddInterface(list, DIID___clsQmxBackProcess, u"__clsQmxBackProcess", kDispatchMarshaller);
    return list.Take();
}

void Register(RegistrationScope scope) {
    const String modulePath = ModulePath();
    RequireLoadable(modulePath);
    WriteEntries(OpenClasses(scope).Get(), RegistrationEntries(modulePath));
}

void Unregister(RegistrationScope scope) {
    EntryList ofTypeLibrary;
    AddInterfaceOfTypeLibrary(ofTypeLibrary, IID__clsQmxBackProcess, kTypeLibraryMarshaller);
    AddInterfaceOfTypeLibrary(ofTypeLibrary, DIID___clsQmxBackProcess, kDispatchMarshaller);
    std::vector<RegistryEntry> entries = RegistrationEntries(ModulePath());
    for (RegistryEntry& entry : ofTypeLibrary.Take()) entries.push_back(std::move(entry));
    RemoveEntries(OpenClasses(scope).Get(), entries);
}

}  // namespace host::com
