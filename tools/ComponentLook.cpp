#include "tools/ComponentLook.h"

#include "host/com/ComHeaders.h"
#include "host/com/ComPtr.h"
#include "runtime/ProgramFile.h"
#include "runtime/ScopeGuard.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/TrustedLibrary.h"
#include "tools/ComFailure.h"

namespace tools {

namespace {

using host::com::ComPtr;
using runtime::win32::Library;
using runtime::win32::Wide;

void ReadVersion(const String& path, ComponentFile& component) {
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(Wide(path), &ignored);
    std::string data(size, '\0');
    if (size == 0 || !GetFileVersionInfoW(Wide(path), 0, size, data.data())) return;
    void* found = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(data.data(), L"\\", &found, &length) || length < sizeof(VS_FIXEDFILEINFO)) return;
    const auto& information = *static_cast<const VS_FIXEDFILEINFO*>(found);
    const Version version{HIWORD(information.dwFileVersionMS), LOWORD(information.dwFileVersionMS)};
    component.version = version;
    component.fullVersion = std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
                            std::to_string(HIWORD(information.dwFileVersionLS));
}

std::optional<Version> TypeLibraryOf(const String& path) {
    ComPtr<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(Wide(path), REGKIND_NONE, library.Put()))) return {};
    TLIBATTR* attributes = nullptr;
    ThrowIfFailed(library->GetLibAttr(&attributes));
    const runtime::ScopeGuard released([&] { library->ReleaseTLibAttr(attributes); });
    if (attributes->guid != LIBID_K4TBackProcess) return {};
    return Version{attributes->wMajorVerNum, attributes->wMinorVerNum};
}

std::string LoadFailureOf(const String& path) {
    using GetClass = HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**);

    const Library library = runtime::win32::LoadTrusted(path);
    if (!library) return "it cannot be loaded: " + SystemText(HRESULT_FROM_WIN32(GetLastError()));
    const FARPROC entry = GetProcAddress(library.Get(), "DllGetClassObject");
    if (entry == nullptr) return "it has no entry DllGetClassObject";
    ComPtr<IUnknown> factory;
    const HRESULT result = (*reinterpret_cast<GetClass*>(reinterpret_cast<void*>(entry)))(
        __uuidof(clsQmxBackProcess), IID_IClassFactory, factory.PutVoid());
    return SUCCEEDED(result) ? "" : "it does not have the class: " + SystemText(result);
}

}  // namespace

ComponentFile LookAtComponent(runtime::FilesPort& files, const String& path) {
    ComponentFile component;
    component.path = path;
    if (!IsFullPath(path)) return component;
    component.exists = files.Stamp(path).has_value();
    if (!component.exists) return component;
    component.bits = runtime::BitsOfProgram(files.Read(path).value_or(""));
    ReadVersion(path, component);
    component.typeLibrary = TypeLibraryOf(path);
    component.loadFailure = LoadFailureOf(path);
    return component;
}

std::string ActivationFailure(const String& library) {
    if (!IsFullPath(library)) return "not tried, because the file might come from the current folder";
    ComPtr<IUnknown> factory;
    const HRESULT result = CoGetClassObject(__uuidof(clsQmxBackProcess), CLSCTX_INPROC_SERVER, nullptr,
                                            IID_IClassFactory, factory.PutVoid());
    if (SUCCEEDED(result)) return "";
    // Some Windows versions have no text for this error.
    const std::string words = result == REGDB_E_CLASSNOTREG ? "COM does not find the class" : SystemText(result);
    return ComFailure(result, words).what();
}

}  // namespace tools
