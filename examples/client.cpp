// This C++ program is an early-bound client of the component, with an event sink. It uses every member and prints each
// step. The exit code is 0 if every step succeeds.
//
// Compile it in this folder, with MinGW-w64 for 32-bit Windows:
//     i686-w64-mingw32-g++ -static -I../include client.cpp -o client.exe -lole32 -loleaut32
#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "K4TBackProcess.h"

namespace {

/// Reports a failed COM call.
struct ComError : std::exception {
    explicit ComError(HRESULT failed) : result(failed) {}
    HRESULT result;
};

void Check(HRESULT result) {
    if (FAILED(result)) throw ComError(result);
}

struct ReleaseInterface {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using Com = std::unique_ptr<Interface, ReleaseInterface>;

template <typename Interface>
Com<Interface> Query(IUnknown& object) {
    void* found = nullptr;
    Check(object.QueryInterface(__uuidof(Interface), &found));
    return Com<Interface>(static_cast<Interface*>(found));
}

struct FreeString {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using ComString = std::unique_ptr<OLECHAR, FreeString>;

/// Implements the event interface. The component calls Invoke with member 1, NotifyServer. Both arguments are strings
/// by reference.
class Events final : public IDispatch {
 public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(__clsQmxBackProcess);
        *object = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
        if (information != nullptr) *information = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        if (member != 1) return DISP_E_MEMBERNOTFOUND;
        if (parameters->cArgs != 2) return DISP_E_BADPARAMCOUNT;
        // COM passes arguments in reverse order: the last argument is rgvarg[0].
        const VARIANT& command = parameters->rgvarg[0];
        const VARIANT& module = parameters->rgvarg[1];
        if (command.vt != (VT_BSTR | VT_BYREF) || module.vt != (VT_BSTR | VT_BYREF)) return DISP_E_TYPEMISMATCH;
        std::printf("event NotifyServer [%ls] [%ls]\n", Text(*module.pbstrVal), Text(*command.pbstrVal));
        return S_OK;
    }

 private:
    ~Events() = default;

    // A null BSTR is an empty string.
    static const wchar_t* Text(BSTR text) { return text != nullptr ? text : L""; }

    ULONG references_ = 1;
};

Com<_clsQmxBackProcess> Create() {
    CLSID identifier;
    Check(CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &identifier));
    void* created = nullptr;
    Check(CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_clsQmxBackProcess), &created));
    return Com<_clsQmxBackProcess>(static_cast<_clsQmxBackProcess*>(created));
}

/// Connects the sink. The sink stays connected, because the last release of the instance still raises "SHUTDOWN".
void Connect(_clsQmxBackProcess& backProcess) {
    const auto container = Query<IConnectionPointContainer>(backProcess);
    IConnectionPoint* found = nullptr;
    Check(container->FindConnectionPoint(__uuidof(__clsQmxBackProcess), &found));
    const Com<IConnectionPoint> point(found);
    const Com<Events> events(new Events);
    DWORD cookie = 0;
    Check(point->Advise(events.get(), &cookie));
}

void Load(_clsQmxBackProcess& backProcess) {
    short mode = 0;
    VARIANT_BOOL loaded = VARIANT_FALSE;
    Check(backProcess.Load(&mode, &loaded));
    std::printf("Load: %s\n", loaded != VARIANT_FALSE ? "True" : "False");
}

void NotifyMe(_clsQmxBackProcess& backProcess, const wchar_t* name, const wchar_t* command) {
    // Both strings are passed by reference, so by COM's rules the callee may replace them. The caller frees them after
    // the call.
    BSTR nameText = SysAllocString(name);
    BSTR commandText = SysAllocString(command);
    const HRESULT result = backProcess.NotifyMe(&nameText, &commandText);
    const ComString ownedName(nameText);
    const ComString ownedCommand(commandText);
    Check(result);
    std::printf("NotifyMe(\"%ls\", \"%ls\"): done\n", name, command);
}

void PutSeverPath(_clsQmxBackProcess& backProcess, const wchar_t* path) {
    const ComString text(SysAllocString(path));
    Check(backProcess.put_SeverPath(text.get()));
    std::printf("SeverPath = \"%ls\"\n", path);
}

void GetSeverPath(_clsQmxBackProcess& backProcess) {
    BSTR path = nullptr;
    Check(backProcess.get_SeverPath(&path));
    const ComString owned(path);
    std::printf("SeverPath: \"%ls\"\n", path != nullptr ? path : L"");
}

void Run() {
    Com<_clsQmxBackProcess> backProcess = Create();
    std::printf("created\n");
    Connect(*backProcess);
    std::printf("events connected\n");

    Load(*backProcess);
    NotifyMe(*backProcess, L"EDITOR", L"");
    NotifyMe(*backProcess, L"", L"All,SAVE");
    PutSeverPath(*backProcess, L"C:\\JOB");
    GetSeverPath(*backProcess);

    backProcess.reset();
    std::printf("released\n");
}

}  // namespace

int main() {
    if (FAILED(OleInitialize(nullptr))) return 1;
    int exitCode = 0;
    try {
        Run();
    } catch (const ComError& error) {
        std::printf("failed: 0x%08lX\n", static_cast<unsigned long>(error.result));
        exitCode = 1;
    }
    OleUninitialize();
    return exitCode;
}
