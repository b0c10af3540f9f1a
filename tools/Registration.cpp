// The component's own registration entries, called; and the registry, read.
#include "tools/Registration.h"

#include <stdexcept>

#include "host/com/ComHeaders.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/Win32Process.h"
#include "tools/Apartment.h"
#include "tools/Display.h"

namespace tools {

namespace {

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
    Library library(LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
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

/// A text below the scope's classes; the key's default value for a null `name`.
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
    };
}

String ClassIdentifier() {
    return Braced(__uuidof(clsQmxBackProcess));
}

const char* RegistryPlace(Scope scope) {
    return scope == Scope::kUser ? "HKEY_CURRENT_USER\\Software\\Classes" : "HKEY_LOCAL_MACHINE\\Software\\Classes";
}

}  // namespace tools
