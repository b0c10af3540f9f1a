// Compares the times of clients' calls with the times of similar calls to the system. The program calls the component
// only through COM and the kernel only through its exports. Therefore the program can also measure the DLLs of earlier
// commits. It registers the DLL in a Wine prefix of its own. The input is in environment variables, because the
// component parses the command line of its client:
//
//     BENCH_DLL       the path of the component
//     BENCH_KERNEL    the path of the kernel
//     BENCH_STEPS     if set, the program measures nothing and runs each step of a client once. Before each step,
//                     a mark appears in the trace of the Wine server
#include <cstring>
#include <vector>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "runtime/win32/Handle.h"
#include "tests/bench/Row.h"
#include "tests/com/StaticSink.h"

#include <commctrl.h>  // needs the headers above

/// Declares the interface of Scripting.Dictionary up to the last method that the program calls. This type is outside
/// the unnamed namespace. Inside, the compiler would assume that no class implements the interface, and could remove
/// the calls.
struct IDictionary : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE putref_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE Add(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(long* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Exists(VARIANT* key, VARIANT_BOOL* exists) = 0;
};

namespace {

using host::com::Bstr;
using host::com::ComPtr;
using Component = ComPtr<_clsQmxBackProcess>;
using tests::Measure;
using tests::Require;
using tests::TimeOf;
using tests::TimeOfCall;

constexpr IID kDictionaryInterface = {0x42C642C1, 0x97E1, 0x11CF, {0x97, 0x8F, 0x00, 0xA0, 0x24, 0x63, 0xE0, 0x6F}};
constexpr const char* kDictionaryPeer = "Scripting.Dictionary: CoCreateInstance, release";
constexpr const char* kRegistryPeer = "RegQueryValueExA, key open";
constexpr const char* kDesign = "C:\\Orvane\\JOB\\amplifier.sch";

void Check(HRESULT result, const char* what) {
    if (FAILED(result)) tests::Fail(what, result);
}

template <typename Function>
Function EntryOf(HMODULE library, const char* name) {
    const FARPROC entry = library ? GetProcAddress(library, name) : nullptr;
    Require(entry != nullptr, name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(entry));
}

ComPtr<IClassFactory> FactoryIn(const char* dll) {
    const HMODULE library = LoadLibraryA(dll);
    Check(EntryOf<HRESULT(STDAPICALLTYPE*)()>(library, "DllRegisterServer")(), "registration");
    const auto getClassObject =
        EntryOf<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(library, "DllGetClassObject");
    ComPtr<IClassFactory> factory;
    Check(getClassObject(__uuidof(clsQmxBackProcess), IID_IClassFactory, factory.PutVoid()), "class factory");
    return factory;
}

Component MakeBy(IClassFactory& factory) {
    Component made;
    Check(factory.CreateInstance(nullptr, __uuidof(_clsQmxBackProcess), made.PutVoid()), "creation");
    return made;
}

Component MakeByCom() {
    Component made;
    Check(CoCreateInstance(__uuidof(clsQmxBackProcess), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_clsQmxBackProcess),
                           made.PutVoid()),
          "CoCreateInstance");
    return made;
}

ComPtr<IDictionary> MakeDictionary() {
    static const CLSID identifier = [] {
        CLSID found;
        Check(CLSIDFromProgID(L"Scripting.Dictionary", &found), "Scripting.Dictionary");
        return found;
    }();
    ComPtr<IDictionary> made;
    Check(CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, kDictionaryInterface, made.PutVoid()),
          "dictionary");
    return made;
}

void Load(const Component& component) {
    short mode = 0;
    VARIANT_BOOL isBroughtUp = VARIANT_FALSE;
    Check(component->Load(&mode, &isBroughtUp), "Load");
}

void Notify(const Component& component, Bstr& command) {
    static Bstr name;
    Check(component->NotifyMe(name.Address(), command.Address()), "NotifyMe");
}

/// Creates and destroys a window like the main form's window: overlapped, hidden, and with a status bar.
void MakeBareWindow() {
    static const ATOM windowClass = [] {
        WNDCLASSW plain{};
        plain.style = CS_OWNDC | CS_DBLCLKS;
        plain.lpfnWndProc = DefWindowProcW;
        plain.hInstance = GetModuleHandleW(nullptr);
        plain.lpszClassName = L"K4T.Bench";
        return RegisterClassW(&plain);
    }();
    const HWND window = CreateWindowExW(0, MAKEINTATOM(windowClass), L"Bare", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                                        570, 430, 143, 169, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    const HWND bar =
        CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, window, nullptr, nullptr, nullptr);
    Require(bar != nullptr, "bare window");
    DestroyWindow(window);
}

/// Makes the system calls with which the kernel's functions are compared. The calls read and write a value of an open
/// registry key, and lock a mutex.
class SystemPeers {
 public:
    SystemPeers() {
        HKEY opened = nullptr;
        Require(RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\K4T bench", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                &opened, nullptr) == ERROR_SUCCESS,
                "registry key");
        key_.Reset(opened);
        Write(kDesign);
    }

    void Read() const {
        char value[64];
        DWORD size = sizeof value;
        Require(RegQueryValueExA(key_.Get(), "value", nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size) ==
                    ERROR_SUCCESS,
                "RegQueryValueExA");
    }
    void Write(const char* value) const {
        RegSetValueExA(key_.Get(), "value", 0, REG_SZ, reinterpret_cast<const BYTE*>(value),
                       static_cast<DWORD>(std::strlen(value)) + 1);
    }
    void TakeMutex() const {
        WaitForSingleObject(mutex_.Get(), INFINITE);
        ReleaseMutex(mutex_.Get());
    }

 private:
    runtime::win32::RegistryKey key_;
    runtime::win32::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, L"Local\\K4T.Bench")};
};

/// The kernel's exports as modules call them.
struct KernelEntries {
    explicit KernelEntries(const char* path) : library(LoadLibraryA(path)) {}
    HMODULE library;
    long(__stdcall* set)(const char*, const char*) = EntryOf<decltype(set)>(library, "E_SetString");
    long(__stdcall* get)(const char*) = EntryOf<decltype(get)>(library, "E_GetString");
};

void Advise(const Component& component, int sinks) {
    static tests::com::StaticSink sink(S_OK);
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    Check(component->QueryInterface(IID_IConnectionPointContainer, container.PutVoid()), "container");
    Check(container->FindConnectionPoint(__uuidof(__clsQmxBackProcess), point.Put()), "connection point");
    DWORD cookie = 0;
    for (int i = 0; i < sinks; ++i) Check(point->Advise(&sink, &cookie), "Advise");
}

VARIANT Text(const Bstr& bstr) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = bstr.Get();
    return variant;
}

DISPID MemberOf(IDispatch& object, const wchar_t* name) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    DISPID member = 0;
    Check(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member), "member");
    return member;
}

/// Calls a member through IDispatch. `arguments` must be in reverse order.
void Invoke(IDispatch& object, DISPID member, VARIANT* arguments, UINT count) {
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    VARIANT result{};
    Check(object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr),
          "Invoke");
}

void TakeAndRelease(IUnknown& object, REFIID iid) {
    ComPtr<IUnknown> taken;
    Check(object.QueryInterface(iid, taken.PutVoid()), "QueryInterface");
}

void MeasureInstances(IClassFactory& factory) {
    const Component first = MakeBy(factory);
    const auto held = MakeDictionary();
    const auto dictionary = [] { return TimeOf([] { MakeDictionary(); }); };
    Measure(
        {"second instance: CoCreateInstance, release", kDictionaryPeer, 1.5, 40},
        [] { return TimeOf([] { MakeByCom(); }); }, dictionary);
    Measure(
        {"second instance: class factory, release", kDictionaryPeer, 0.385, 40},
        [&] { return TimeOf([&] { MakeBy(factory); }); }, dictionary);
}

void MeasureLoad(IClassFactory& factory) {
    const Component first = MakeBy(factory);
    Measure(
        {"creation, Load, release", "a bare window with a status bar, made and destroyed", 1.3, 15},
        [&] { return TimeOf([&] { Load(MakeBy(factory)); }); }, [] { return TimeOf(MakeBareWindow); });
    Load(first);
    const HCURSOR busy = LoadCursorW(nullptr, IDC_WAIT);
    Measure(
        {"Load when the form is loaded", "SetCursor twice", 1.5, 40}, [&] { return TimeOf([&] { Load(first); }); },
        [=] {
            return TimeOf([=] {
                SetCursor(busy);
                SetCursor(nullptr);
            });
        });
}

void MeasureKernel(const KernelEntries& kernel, const SystemPeers& peers) {
    constexpr int kCalls = 200;
    kernel.set("BENCH", kDesign);
    Measure(
        {"E_GetString", kRegistryPeer, 0.05}, [&] { return TimeOfCall(kCalls, [&] { kernel.get("BENCH"); }); },
        [&] { return TimeOfCall(kCalls, [&] { peers.Read(); }); });
    Measure(
        {"E_SetString, the value that is there", "RegSetValueExA, key open", 0.05},
        [&] { return TimeOfCall(kCalls, [&] { kernel.set("BENCH", kDesign); }); },
        [&] { return TimeOfCall(kCalls, [&] { peers.Write(kDesign); }); });
    int count = 0;
    Measure(
        {"E_SetString, a new value", "a named mutex, taken and given back", 1.1},
        [&] { return TimeOfCall(kCalls, [&] { kernel.set("BENCH", ++count % 2 == 0 ? "one" : "two"); }); },
        [&] { return TimeOfCall(kCalls, [&] { peers.TakeMutex(); }); });
}

void MeasureStrings(const KernelEntries& kernel, const SystemPeers& peers, int strings) {
    static int made = 0;
    for (; made < strings; ++made) kernel.set(("KEY" + std::to_string(made)).c_str(), kDesign);
    const std::string key = "KEY" + std::to_string(strings / 2);
    Measure(
        {"E_GetString among " + std::to_string(strings) + " strings", kRegistryPeer},
        [&] { return TimeOfCall(200, [&] { kernel.get(key.c_str()); }); },
        [&] { return TimeOfCall(200, [&] { peers.Read(); }); });
}

void MeasureCommands(IClassFactory& factory, const KernelEntries& kernel, const SystemPeers& peers) {
    constexpr int kCalls = 2000;
    const Component component = MakeBy(factory);
    const auto dictionary = MakeDictionary();
    Bstr name;
    Bstr ignored(u"Editor,SAVE");
    Bstr save(u"All,SAVE");
    VARIANT key = Text(ignored);
    kernel.set("DESIGN_NAME", kDesign);
    Measure(
        {"All,SAVE", kRegistryPeer, 0.1}, [&] { return TimeOfCall(200, [&] { Notify(component, save); }); },
        [&] { return TimeOfCall(200, [&] { peers.Read(); }); });
    Measure(
        {"NotifyMe ignored, dual interface", "Exists, dual interface", 1.0},
        [&] { return TimeOfCall(kCalls, [&] { Notify(component, ignored); }); },
        [&] {
            return TimeOfCall(kCalls, [&] {
                VARIANT_BOOL exists = VARIANT_FALSE;
                Check(dictionary->Exists(&key, &exists), "Exists");
            });
        });
    const DISPID notifyMe = MemberOf(*component.Get(), L"NotifyMe");
    const DISPID exists = MemberOf(*dictionary.Get(), L"Exists");
    VARIANT arguments[2];
    arguments[0] = Text(ignored);
    arguments[1] = Text(name);
    Measure(
        {"NotifyMe ignored, Invoke", "Exists, Invoke", 0.2},
        [&] { return TimeOfCall(kCalls, [&] { Invoke(*component.Get(), notifyMe, arguments, 2); }); },
        [&] { return TimeOfCall(kCalls, [&] { Invoke(*dictionary.Get(), exists, &key, 1); }); });
    Measure(
        {"GetIDsOfNames", "the dictionary's", 0.05},
        [&] { return TimeOfCall(kCalls, [&] { MemberOf(*component.Get(), L"NotifyMe"); }); },
        [&] { return TimeOfCall(kCalls, [&] { MemberOf(*dictionary.Get(), L"Exists"); }); });
    Measure(
        {"QueryInterface, release", "the dictionary's", 0.8},
        [&] { return TimeOfCall(kCalls, [&] { TakeAndRelease(*component.Get(), IID_IDispatch); }); },
        [&] { return TimeOfCall(kCalls, [&] { TakeAndRelease(*dictionary.Get(), IID_IDispatch); }); });
}

/// Returns the time of EX, which unloads the form and raises SHUTDOWN for each sink.
double TimeOfEnd(const Component& component) {
    Bstr end(u"All,EX");
    Load(component);
    return TimeOf([&] { Notify(component, end); });
}

void MeasureSinks(IClassFactory& factory, int sinks) {
    const Component few = MakeBy(factory);
    Measure(
        {"All,EX, " + std::to_string(sinks) + " sinks", "the same without a sink", 0, 9},
        [&] {
            const Component many = MakeBy(factory);
            Advise(many, sinks);
            return TimeOfEnd(many);
        },
        [&] { return TimeOfEnd(few); });
}

/// Makes a call that has no effect and shows the step's name in the trace of the Wine server.
void Mark(const char* step) {
    const runtime::win32::KernelHandle none(OpenEventA(SYNCHRONIZE, FALSE, (std::string("K4T.step.") + step).c_str()));
}

void DoEachStepOnce(IClassFactory& factory) {
    const Component first = MakeBy(factory);
    for (int i = 0; i < 3; ++i) Load(MakeBy(factory));
    Bstr save(u"All,SAVE");
    Bstr language(u"All,LZ");
    Mark("creation");
    Component second = MakeBy(factory);
    Mark("Load");
    Load(second);
    Mark("Load when loaded");
    Load(second);
    Mark("All,SAVE");
    Notify(second, save);
    Mark("All,LZ");
    Notify(second, language);
    Mark("release");
    second.Reset();
    Mark("a bare window");
    MakeBareWindow();
    Mark("end");
}

void MeasureAll(IClassFactory& factory, const char* kernelPath) {
    const KernelEntries kernel(kernelPath);
    const SystemPeers peers;
    MeasureInstances(factory);
    MeasureLoad(factory);
    MeasureKernel(kernel, peers);
    MeasureCommands(factory, kernel, peers);
    for (const int sinks : {1, 10, 100, 1'000}) MeasureSinks(factory, sinks);
    for (const int strings : {10, 100, 1'000, 10'000, 100'000}) MeasureStrings(kernel, peers, strings);
}

}  // namespace

int main() {
    const char* const dll = std::getenv("BENCH_DLL");
    const char* const kernel = std::getenv("BENCH_KERNEL");
    Require(dll && kernel, "BENCH_DLL and BENCH_KERNEL are missing");
    Check(OleInitialize(nullptr), "OLE");
    const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    {
        const ComPtr<IClassFactory> factory = FactoryIn(dll);
        if (std::getenv("BENCH_STEPS")) {
            DoEachStepOnce(*factory.Get());
        } else {
            MeasureAll(*factory.Get(), kernel);
        }
    }
    OleUninitialize();
}
