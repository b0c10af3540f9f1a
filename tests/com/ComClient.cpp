// A client of the component. The tests start it in its own process, because most of its jobs end the process or threads
// without a clean-up.
//     com_client exit COMPONENT      creates an instance from the library COMPONENT, loads its form, and ends without a
//                                    release. Exit code 0; 1 if the form's window is destroyed at the end; 2 or more
//                                    after an earlier failure
//     com_client lose COMPONENT      ends eight threads, each while it shows the message of a failed command. Exit code
//                                    0 if the message of the next failed command appears, 1 if it does not, 2 or more
//                                    after an earlier failure
//     com_client unattended COMPONENT
//                                    sends failing commands from two apartments. Exit code 0 if no message appears and
//                                    OutputDebugString gets a report of each failure; 1 if a message appears; 11 if a
//                                    report is missing; 2 to 10 after an earlier failure
//     com_client listen FILE EVENT   reads a marshalled instance from FILE, connects a sink to it, sets EVENT, and
//                                    dispatches messages until it is killed
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "tests/com/StaticSink.h"

#include <shellapi.h>

namespace {

using host::com::Bstr;
using host::com::ComPtr;
using host::com::Query;
using tests::com::StaticSink;

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

/// Returns an instance whose form is loaded. The instance is never released.
_clsQmxBackProcess* MakeLoadedInstance(const wchar_t* component) {
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
    return instance;
}

int EndWithoutRelease(const wchar_t* component) {
    MakeLoadedInstance(component);
    EnumThreadWindows(GetCurrentThreadId(), WatchForm, 0);
    Require(formProcedure != nullptr, 6);
    return 0;
}

void Connect(IUnknown* instance, IDispatch& sink) {
    const auto container = Query<IConnectionPointContainer>(instance, IID_IConnectionPointContainer);
    Require(static_cast<bool>(container), 6);
    ComPtr<IConnectionPoint> point;
    Require(SUCCEEDED(container->FindConnectionPoint(DIID___clsQmxBackProcess, point.Put())), 7);
    DWORD cookie = 0;
    Require(SUCCEEDED(point->Advise(&sink, &cookie)), 8);
}

BOOL CALLBACK FindMessage(HWND window, LPARAM found) noexcept {
    wchar_t name[16];
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wcscmp(name, L"#32770") == 0 && IsWindowVisible(window)) *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

bool isMessageShown = false;
const DWORD mainThreadId = GetCurrentThreadId();

/// The message loop of a message box calls this function. On the main thread, the function sets isMessageShown and
/// closes the box. On any other thread, it ends the thread.
void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    HWND message = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindMessage, reinterpret_cast<LPARAM>(&message));
    if (message == nullptr) return;
    if (GetCurrentThreadId() != mainThreadId) ExitThread(0);
    isMessageShown = true;
    PostMessageW(message, WM_CLOSE, 0, 0);
}

/// Connects a sink that fails at the shutdown, then sends EX. The component reports the failure in a message box.
void SendFailingCommand(const wchar_t* component) {
    static StaticSink failing(E_FAIL);
    _clsQmxBackProcess* const instance = MakeLoadedInstance(component);
    Connect(instance, failing);
    SetTimer(nullptr, 0, 20, OnTimer);
    Bstr name;
    Bstr command(u"All,EX");
    instance->NotifyMe(name.Address(), command.Address());
}

DWORD WINAPI EndInsideAMessage(void* component) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    SendFailingCommand(static_cast<const wchar_t*>(component));
    return 0;
}

int LoseHomes(wchar_t* component) {
    for (int i = 0; i < 8; ++i) {
        const HANDLE thread = CreateThread(nullptr, 0, EndInsideAMessage, component, 0, nullptr);
        Require(WaitForSingleObject(thread, 10'000) == WAIT_OBJECT_0, 9);
        CloseHandle(thread);
    }
    SendFailingCommand(component);
    return isMessageShown ? 0 : 1;
}

int answeredMessages = 0;

/// Counts the reports of answered messages. Each text of OutputDebugString arrives as an exception.
LONG CALLBACK CountAnswers(EXCEPTION_POINTERS* exception) noexcept {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (record.ExceptionCode != DBG_PRINTEXCEPTION_C || record.NumberParameters < 2) return EXCEPTION_CONTINUE_SEARCH;
    const auto* const line = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
    if (std::strstr(line, "unattended, message answered with OK") != nullptr) ++answeredMessages;
    return EXCEPTION_CONTINUE_SEARCH;
}

constexpr int kFailingCommands = 20;

/// Sends EX repeatedly. A sink fails at the shutdown and therefore each command fails.
void SendFailingCommands(_clsQmxBackProcess* instance) {
    for (int i = 0; i < kFailingCommands; ++i) {
        short mode = 0;
        VARIANT_BOOL result = VARIANT_FALSE;
        Require(SUCCEEDED(instance->Load(&mode, &result)), 9);
        Bstr name;
        Bstr command(u"All,EX");
        Require(SUCCEEDED(instance->NotifyMe(name.Address(), command.Address())), 10);
    }
}

DWORD WINAPI SendFromOtherApartment(void* component) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    SendFailingCommands(MakeLoadedInstance(static_cast<const wchar_t*>(component)));
    return 0;
}

/// Dispatches this thread's messages until `thread` has ended.
void ServeUntilEndOf(HANDLE thread) {
    while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
    }
}

int AnswerUnattended(wchar_t* component) {
    AddVectoredExceptionHandler(1, CountAnswers);
    SetTimer(nullptr, 0, 20, OnTimer);
    static StaticSink failing(E_FAIL);
    _clsQmxBackProcess* const instance = MakeLoadedInstance(component);
    Connect(instance, failing);
    const HANDLE thread = CreateThread(nullptr, 0, SendFromOtherApartment, component, 0, nullptr);
    ServeUntilEndOf(thread);
    SendFailingCommands(instance);
    CloseHandle(thread);
    if (isMessageShown) return 1;
    return answeredMessages == 2 * kFailingCommands ? 0 : 11;
}

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
    static StaticSink sink(S_OK);
    Connect(Unmarshal(path).Get(), sink);
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
    if (job == L"lose" && argc == 3) return LoseHomes(argv[2]);
    if (job == L"unattended" && argc == 3) return AnswerUnattended(argv[2]);
    if (job == L"listen" && argc == 4) return Listen(argv[2], argv[3]);
    return 99;
}
