// A client of the component in a process of its own, for tests of what a client leaves behind.
//     com_client exit COMPONENT      makes an instance of the library COMPONENT, brings its form up, and ends without a
//                                    release. Exit code 0; 1 when the form's window is destroyed at the end; 2 or more
//                                    when something fails before
//     com_client listen FILE EVENT   connects a sink to the instance whose marshalled interface FILE holds, sets EVENT,
//                                    and serves its messages until it is killed
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "host/com/ComPtr.h"
#include "host/com/References.h"

#include <shellapi.h>

namespace {

using host::com::ComPtr;
using host::com::Query;

[[noreturn]] void Fail(int code) {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    std::abort();
}

void Require(bool isDone, int code) {
    if (!isDone) Fail(code);
}

WNDPROC formProcedure = nullptr;

LRESULT CALLBACK NoticeTheEnd(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_DESTROY || message == WM_NCDESTROY) Fail(1);
    return CallWindowProcW(formProcedure, window, message, wParam, lParam);
}

BOOL CALLBACK WatchForm(HWND window, LPARAM) noexcept {
    wchar_t name[64];
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wcscmp(name, L"K4TBackProcess.Form") != 0) return TRUE;
    formProcedure =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NoticeTheEnd)));
    return FALSE;
}

int EndWithoutRelease(const wchar_t* component) {
    const HMODULE library = LoadLibraryExW(component, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    Require(library != nullptr, 2);
    const auto getClassObject = reinterpret_cast<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    Require(SUCCEEDED(getClassObject(CLSID_clsQmxBackProcess, IID_IClassFactory, factory.PutVoid())), 3);
    _clsQmxBackProcess* instance = nullptr;
    Require(SUCCEEDED(factory->CreateInstance(nullptr, IID__clsQmxBackProcess, reinterpret_cast<void**>(&instance))),
            4);
    short mode = 0;
    VARIANT_BOOL result = VARIANT_FALSE;
    Require(SUCCEEDED(instance->Load(&mode, &result)), 5);
    EnumThreadWindows(GetCurrentThreadId(), WatchForm, 0);
    Require(formProcedure != nullptr, 6);
    return 0;
}

/// Lives as long as the process.
class SilentSink final : public IDispatch {
 public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool isKnown = iid == IID_IUnknown || iid == IID_IDispatch || iid == DIID___clsQmxBackProcess;
        *object = isKnown ? this : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return S_OK;
    }
};

ComPtr<IUnknown> Unmarshal(const wchar_t* path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    ComPtr<IStream> stream;
    Require(SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put())), 2);
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
    ComPtr<IUnknown> instance;
    Require(SUCCEEDED(CoUnmarshalInterface(stream.Get(), IID_IUnknown, instance.PutVoid())), 3);
    return instance;
}

int Listen(const wchar_t* path, const wchar_t* eventName) {
    const auto container = Query<IConnectionPointContainer>(Unmarshal(path).Get(), IID_IConnectionPointContainer);
    Require(static_cast<bool>(container), 4);
    ComPtr<IConnectionPoint> point;
    Require(SUCCEEDED(container->FindConnectionPoint(DIID___clsQmxBackProcess, point.Put())), 5);
    static SilentSink sink;
    DWORD cookie = 0;
    Require(SUCCEEDED(point->Advise(&sink, &cookie)), 6);
    SetEvent(OpenEventW(EVENT_MODIFY_STATE, FALSE, eventName));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 7;
}

}  // namespace

int main() {
    int argc = 0;
    wchar_t** const argv = CommandLineToArgvW(GetCommandLineW(), &argc);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const std::wstring job = argc > 1 ? argv[1] : L"";
    if (job == L"exit" && argc == 3) return EndWithoutRelease(argv[2]);
    if (job == L"listen" && argc == 4) return Listen(argv[2], argv[3]);
    return 99;
}
