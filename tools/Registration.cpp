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

String BesideTheTool(const String& name) {
    String folder = runtime::win32::Win32Process(nullptr).ComponentFolder();
    if (!folder.ends_with(u'\\')) folder += u'\\';
    return folder + name;
}

Library LoadComponent() {
    const String path = BesideTheTool(u"K4TBackProcess.dll");
    Library library(LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (library) return library;
    const std::string reason = SystemText(HRESULT_FROM_WIN32(GetLastError()));
    throw std::runtime_error("cannot load " + Display(path) + ": " + reason);
}

template <typename Function>
Function* Entry(const Library& library, const char* name) {
    const FARPROC entry = GetProcAddress(library.Get(), name);
    if (entry == nullptr) throw std::runtime_error(std::string("K4TBackProcess.dll has no entry ") + name);
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

}  // namespace

void Register(Scope scope) {
    Call(scope, true);
}

void Unregister(Scope scope) {
    Call(scope, false);
}

std::optional<String> RegisteredLibrary(Scope scope) {
    const String key = u"Software\\Classes\\CLSID\\" + ClassIdentifier() + u"\\InprocServer32";
    constexpr DWORD kText = RRF_RT_REG_SZ;
    DWORD bytes = 0;
    if (RegGetValueW(Root(scope), Wide(key), nullptr, kText, nullptr, nullptr, &bytes) != ERROR_SUCCESS) return {};
    String path(bytes / sizeof(char16_t), u'\0');
    if (RegGetValueW(Root(scope), Wide(key), nullptr, kText, nullptr, path.data(), &bytes) != ERROR_SUCCESS) return {};
    path.resize(path.find(u'\0'));
    return path;
}

String ClassIdentifier() {
    wchar_t text[39];
    StringFromGUID2(__uuidof(clsQmxBackProcess), text, static_cast<int>(std::size(text)));
    return runtime::win32::ToString(text);
}

const char* RegistryPlace(Scope scope) {
    return scope == Scope::kUser ? "HKEY_CURRENT_USER\\Software\\Classes" : "HKEY_LOCAL_MACHINE\\Software\\Classes";
}

}  // namespace tools
