// Calls the component's registration functions and reads the registry.
#include "tools/Registration.h"

#include <stdexcept>

#include "host/com/ComHeaders.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/TrustedLibrary.h"
#include "runtime/win32/Win32Process.h"
#include "tools/Apartment.h"
#include "tools/Display.h"

namespace tools {

namespace {

using runtime::StringView;
using runtime::win32::Library;
using runtime::win32::Wide;

constexpr const char16_t* kFileName = u"K4TBackProcess.dll";

String BesideTheTool(const String& name) {
    String folder = runtime::win32::Win32Process(nullptr).ComponentFolder();
    if (!folder.ends_with(u'\\')) folder += u'\\';
    return folder + name;
}

Library LoadComponent() {
    const String path = BesideTheTool(kFileName);
    Library library = runtime::win32::LoadTrusted(path);
    if (library) return library;
    const std::string reason = SystemText(HRESULT_FROM_WIN32(GetLastError()));
    throw std::runtime_error("cannot load " + Quoted(path) + ": " + reason +
                             "; put the K4TBackProcess.dll of the package there");
}

template <typename Function>
Function* Entry(const Library& library, const char* name) {
    const FARPROC entry = GetProcAddress(library.Get(), name);
    if (entry == nullptr) {
        throw std::runtime_error(Quoted(BesideTheTool(kFileName)) + " has no entry " + name +
                                 "; put the K4TBackProcess.dll of the package there");
    }
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(entry));
}

void Call(Scope scope, bool install) {
    using Server = HRESULT STDAPICALLTYPE();
    using Install = HRESULT STDAPICALLTYPE(BOOL install, const wchar_t* commandLine);

    const Apartment apartment;
    const Library library = LoadComponent();
    ClearErrorObject();
    if (scope == Scope::kUser) {
        ThrowIfFailed(Entry<Install>(library, "DllInstall")(install, L"user"));
    } else {
        ThrowIfFailed(Entry<Server>(library, install ? "DllRegisterServer" : "DllUnregisterServer")());
    }
}

HKEY Root(Scope scope) {
    return scope == Scope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// Reads a text under the scope's "Software\Classes" key. If `name` is null, reads the key's default value.
std::optional<String> ClassesText(Scope scope, const String& key, const wchar_t* name = nullptr) {
    const String path = u"Software\\Classes\\" + key;
    DWORD bytes = 0;
    if (RegGetValueW(Root(scope), Wide(path), name, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) != ERROR_SUCCESS)
        return {};
    String text(bytes / sizeof(char16_t), u'\0');
    if (RegGetValueW(Root(scope), Wide(path), name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) != ERROR_SUCCESS) {
        return {};
    }
    text.resize(text.find(u'\0'));
    return text;
}

String Braced(REFGUID guid) {
    wchar_t text[39];
    StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
    return runtime::win32::ToString(text);
}

String ServerKey() {
    return u"CLSID\\" + ClassIdentifier() + u"\\InprocServer32";
}

/// The registry entry of an interface. COM needs this entry to create a proxy.
struct ProxyEntry {
    const char* name;
    IID identifier;
    StringView marshaller;  ///< the system's marshaller for type libraries or for late-bound calls
};

std::vector<std::string> InterfacesWithoutProxy(Scope scope) {
    const ProxyEntry wanted[] = {
        {"_clsQmxBackProcess", __uuidof(_clsQmxBackProcess), u"{00020424-0000-0000-C000-000000000046}"},
        {"__clsQmxBackProcess", __uuidof(__clsQmxBackProcess), u"{00020420-0000-0000-C000-000000000046}"},
    };
    std::vector<std::string> without;
    for (const ProxyEntry& entry : wanted) {
        const String key = u"Interface\\" + Braced(entry.identifier);
        const bool isWhole = ClassesText(scope, key + u"\\ProxyStubClsid32") == String(entry.marshaller) &&
                             ClassesText(scope, key + u"\\TypeLib") == Braced(LIBID_K4TBackProcess);
        if (!isWhole) without.emplace_back(entry.name);
    }
    return without;
}

}  // namespace

void Register(Scope scope) {
    Call(scope, true);
}

void Unregister(Scope scope) {
    Call(scope, false);
}

std::optional<String> RegisteredLibrary(Scope scope) {
    return ClassesText(scope, ServerKey());
}

std::optional<ClassEntry> RegisteredClass(Scope scope) {
    const std::optional<String> library = RegisteredLibrary(scope);
    if (!library) return {};
    const String typeLibraryKey = u"TypeLib\\" + Braced(LIBID_K4TBackProcess) + u"\\1.0\\409\\win32";
    return ClassEntry{
        .library = *library,
        .threadingModel = ClassesText(scope, ServerKey(), L"ThreadingModel").value_or(u""),
        .typeLibrary = ClassesText(scope, typeLibraryKey).value_or(u""),
        .noProxies = InterfacesWithoutProxy(scope),
    };
}

std::vector<RegistryValue> RegisteredValues(Scope scope) {
    std::vector<RegistryValue> values;
    const auto add = [&](const String& key, const String& name = {}) {
        const auto text = ClassesText(scope, key, name.empty() ? nullptr : Wide(name));
        if (text) values.push_back({key, name, *text});
    };
    add(u"K4TBackProcess.clsQmxBackProcess\\CLSID");
    const String classKey = u"CLSID\\" + ClassIdentifier();
    add(classKey);
    add(ServerKey());
    add(ServerKey(), u"ThreadingModel");
    for (const char16_t* below : {u"ProgID", u"TypeLib", u"Version"}) add(classKey + u"\\" + below);
    const String libraryKey = u"TypeLib\\" + Braced(LIBID_K4TBackProcess) + u"\\1.0";
    for (const char16_t* below : {u"409\\win32", u"0\\win32", u"FLAGS", u"HELPDIR"}) add(libraryKey + u"\\" + below);
    for (const IID& identifier : {__uuidof(_clsQmxBackProcess), __uuidof(__clsQmxBackProcess)}) {
        const String key = u"Interface\\" + Braced(identifier);
        add(key);
        add(key + u"\\ProxyStubClsid32");
        add(key + u"\\TypeLib");
        add(key + u"\\TypeLib", u"Version");
    }
    return values;
}

NameEntry RegisteredName() {
    const String key = u"K4TBackProcess.clsQmxBackProcess\\CLSID";
    NameEntry name;
    for (const Scope scope : {Scope::kUser, Scope::kMachine}) {
        const std::optional<String> identifier = ClassesText(scope, key);
        if (!identifier) continue;
        name = {.scope = scope, .classIdentifier = *identifier};
        CLSID named{};
        name.isOurs = SUCCEEDED(CLSIDFromString(Wide(*identifier), &named)) && named == __uuidof(clsQmxBackProcess);
        return name;
    }
    return name;
}

String ClassIdentifier() {
    return Braced(__uuidof(clsQmxBackProcess));
}

const char* RegistryPlace(Scope scope) {
    return scope == Scope::kUser ? "HKEY_CURRENT_USER\\Software\\Classes" : "HKEY_LOCAL_MACHINE\\Software\\Classes";
}

}  // namespace tools
