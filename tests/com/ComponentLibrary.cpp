#include "tests/com/ComponentLibrary.h"

#include <cwchar>
#include <iterator>

#include "tests/support/TestFolder.h"

namespace tests::com {
namespace {

BOOL CALLBACK CountForm(HWND window, LPARAM into) noexcept {
    wchar_t name[64];
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wcscmp(name, L"K4TBackProcess.Form") == 0) ++*reinterpret_cast<int*>(into);
    return TRUE;
}

}  // namespace

std::filesystem::path ComponentDll() {
    return std::filesystem::path(TestFolder()) / L"K4TBackProcess.dll";
}

ComponentLibrary::ComponentLibrary(const std::filesystem::path& path)
    : library_(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
    EXPECT_TRUE(library_) << GetLastError();
}

template <typename Function>
Function* ComponentLibrary::Export(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library_.Get(), name)));
}

ComPtr<IClassFactory> ComponentLibrary::ClassFactory() const {
    ComPtr<IClassFactory> factory;
    const auto getClassObject = Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    EXPECT_EQ("0x00000000", Hex(getClassObject(CLSID_clsQmxBackProcess, IID_IClassFactory, factory.PutVoid())));
    return factory;
}

ComPtr<_clsQmxBackProcess> ComponentLibrary::Create() const {
    ComPtr<_clsQmxBackProcess> instance;
    EXPECT_EQ("0x00000000", Hex(ClassFactory()->CreateInstance(nullptr, IID__clsQmxBackProcess, instance.PutVoid())));
    return instance;
}

HRESULT ComponentLibrary::Register() const {
    return Export<HRESULT WINAPI()>("DllRegisterServer")();
}

HRESULT ComponentLibrary::Unregister() const {
    return Export<HRESULT WINAPI()>("DllUnregisterServer")();
}

HRESULT ComponentLibrary::CanUnload() const {
    return Export<HRESULT WINAPI()>("DllCanUnloadNow")();
}

ComPtr<_clsQmxBackProcess> CreateRegistered() {
    ComPtr<_clsQmxBackProcess> instance;
    EXPECT_EQ("0x00000000", Hex(CoCreateInstance(CLSID_clsQmxBackProcess, nullptr, CLSCTX_INPROC_SERVER,
                                                 IID__clsQmxBackProcess, instance.PutVoid())));
    return instance;
}

std::string CaptionOfForm(_clsQmxBackProcess* instance) {
    const auto diagnostics = Query<IK4TDiagnostics>(instance, IID_IK4TDiagnostics);
    Bstr caption;
    EXPECT_EQ(S_OK, diagnostics->get_Caption(caption.Address()));
    return Utf8(caption.Get());
}

int FormWindows(DWORD threadId) {
    int count = 0;
    EnumThreadWindows(threadId, CountForm, reinterpret_cast<LPARAM>(&count));
    return count;
}

VARIANT_BOOL Load(_clsQmxBackProcess* instance) {
    short mode = 1;
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(S_OK, instance->Load(&mode, &result));
    EXPECT_EQ(1, mode);
    return result;
}

}  // namespace tests::com
