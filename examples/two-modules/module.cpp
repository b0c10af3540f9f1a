#include "module.h"

#include <cstdio>
#include <string_view>

#include "QmxKrn2K.h"

namespace {

constexpr wchar_t kWindowClass[] = L"PelorixSampleModule";
constexpr wchar_t kComponent[] = L"K4TBACKPROCESS";
constexpr UINT kLineMessage = WM_APP;  ///< lParam: a line of input; the receiver deletes it

std::wstring Wide(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Utf8(const std::wstring& wide) {
    const int units = static_cast<int>(wide.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

/// Owns a BSTR. A COM call may replace a BSTR that is passed by reference.
class Text {
 public:
    Text() = default;
    explicit Text(const std::wstring& text) : bstr_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(bstr_); }

    BSTR Get() const { return bstr_; }
    BSTR* Address() { return &bstr_; }
    std::wstring Value() const { return std::wstring(bstr_ == nullptr ? L"" : bstr_, SysStringLen(bstr_)); }

 private:
    BSTR bstr_ = nullptr;
};

/// Receives NotifyServer for the module. The module must outlive the connection.
class Sink final : public IDispatch {
 public:
    explicit Sink(Module& module) : module_(module) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
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
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        if (member != 1 || given->cArgs != 2) return DISP_E_MEMBERNOTFOUND;
        const BSTR command = *given->rgvarg[0].pbstrVal;  // COM passes arguments in reverse order
        const BSTR addressee = *given->rgvarg[1].pbstrVal;
        module_.NotifyServer(std::wstring(addressee == nullptr ? L"" : addressee, SysStringLen(addressee)),
                             std::wstring(command == nullptr ? L"" : command, SysStringLen(command)));
        return S_OK;
    }

 private:
    ~Sink() = default;

    Module& module_;
    ULONG references_ = 1;
};

/// Reads standard input and posts each line to the window. The thread ends when the input ends or the program exits.
/// The thread does not use std::cin, because the program's exit would wait for a thread that reads from std::cin.
DWORD WINAPI ReadLines(void* window) noexcept {
    std::string pending;
    char read[4096];
    DWORD count = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), read, sizeof read, &count, nullptr) != FALSE && count > 0) {
        pending.append(read, count);
        std::size_t start = 0;
        for (std::size_t end; (end = pending.find('\n', start)) != std::string::npos; start = end + 1) {
            const std::size_t length = end - start - (end > start && pending[end - 1] == '\r' ? 1 : 0);
            auto line = std::make_unique<std::wstring>(Wide(std::string_view(pending).substr(start, length)));
            if (PostMessageW(static_cast<HWND>(window), kLineMessage, 0, reinterpret_cast<LPARAM>(line.get())) != FALSE)
                line.release();
        }
        pending.erase(0, start);
    }
    return 0;
}

}  // namespace

Module::Module(std::wstring name) : name_(std::move(name)) {}

int Module::Run() {
    if (FAILED(OleInitialize(nullptr))) return 1;
    bool started = MakeWindow() && CreateComponent() && ConnectEvents();
    if (started) {
        // Open the mailbox after the creation of the instance, because the instance loads the kernel. Open the mailbox
        // before Load, because Load reads the module list.
        mailbox_ = std::make_unique<Mailbox>(
            name_, [this](const std::wstring& from, const std::wstring& command) { Arrived(from, command); });
        started = mailbox_->IsOpen() && LoadForm();
        if (!mailbox_->IsOpen()) Say(L"cannot open the mailbox; check that the name is allowed and not in use");
    }
    if (started) {
        Say(L"ready");
        const HANDLE reader = CreateThread(nullptr, 0, ReadLines, window_, 0, nullptr);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        CloseHandle(reader);
    }
    mailbox_.reset();
    diagnostics_.reset();
    component_.reset();  // unloads the form; the sink receives SHUTDOWN
    Say(L"ended");
    OleUninitialize();
    return started ? 0 : 1;
}

bool Module::MakeWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
    window_ = CreateWindowW(kWindowClass, name_.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                            480, 240, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (window_ == nullptr) return false;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    RECT inner;
    GetClientRect(window_, &inner);
    list_ = CreateWindowW(L"LISTBOX", nullptr, WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, 0, 0,
                          inner.right, inner.bottom, window_, nullptr, windowClass.hInstance, nullptr);
    return list_ != nullptr;
}

LRESULT CALLBACK Module::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* const module = reinterpret_cast<Module*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
        case WM_SIZE:
            if (module != nullptr) MoveWindow(module->list_, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
            return 0;
        case kLineMessage: {
            const std::unique_ptr<std::wstring> line(reinterpret_cast<std::wstring*>(lParam));
            if (module != nullptr) module->OnLine(*line);
            return 0;
        }
        case WM_DESTROY:
            if (module != nullptr) module->list_ = nullptr;
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

bool Module::CreateComponent() {
    void* made = nullptr;
    const HRESULT created = CoCreateInstance(__uuidof(clsQmxBackProcess), nullptr, CLSCTX_INPROC_SERVER,
                                             __uuidof(_clsQmxBackProcess), &made);
    if (FAILED(created)) {
        wchar_t code[11];
        swprintf(code, 11, L"0x%08lX", static_cast<unsigned long>(created));
        Say(std::wstring(L"cannot create the component: ") + code + L"; run 'backproc doctor' to see why");
        return false;
    }
    component_.reset(static_cast<_clsQmxBackProcess*>(made));
    void* diagnostics = nullptr;
    if (FAILED(component_->QueryInterface(__uuidof(IK4TDiagnostics), &diagnostics))) return false;
    diagnostics_.reset(static_cast<IK4TDiagnostics*>(diagnostics));
    return true;
}

/// Connects the sink. The sink stays connected until the last release of the instance has returned.
bool Module::ConnectEvents() {
    void* asked = nullptr;
    if (FAILED(component_->QueryInterface(__uuidof(IConnectionPointContainer), &asked))) return false;
    const Com<IConnectionPointContainer> container(static_cast<IConnectionPointContainer*>(asked));
    IConnectionPoint* found = nullptr;
    if (FAILED(container->FindConnectionPoint(__uuidof(__clsQmxBackProcess), &found))) return false;
    const Com<IConnectionPoint> point(found);
    Sink* const sink = new Sink(*this);
    DWORD cookie = 0;
    const HRESULT connected = point->Advise(sink, &cookie);
    sink->Release();
    return SUCCEEDED(connected);
}

bool Module::LoadForm() {
    short mode = 0;
    VARIANT_BOOL loaded = VARIANT_FALSE;
    return SUCCEEDED(component_->Load(&mode, &loaded));
}

void Module::NotifyServer(const std::wstring& addressee, const std::wstring& command) {
    if (addressee != kComponent) {
        Deliver(addressee, command);
    } else if (command == L"SHUTDOWN") {
        Say(L"the component's form was unloaded");
    } else {
        // A command whose addressee is the component is for every module, including this module.
        for (const std::wstring& other : mailbox_->Others()) Deliver(other, command);
        Deliver(name_, command);
    }
}

void Module::Deliver(const std::wstring& module, const std::wstring& command) {
    switch (mailbox_->Send(module, command)) {
        case Delivery::kStored:
            return;
        case Delivery::kBusy:
            return Say(module + L" is busy, not delivered: " + command.substr(0, 40));
        case Delivery::kGone:
            return Say(module + L" is not running, not delivered: " + command.substr(0, 40));
    }
}

/// Passes every command to the component. The component carries out commands for itself and for "All" and ignores all
/// other commands.
void Module::Arrived(const std::wstring& from, const std::wstring& command) {
    Say(L"from " + from + L": " + command.substr(0, 40));
    Text name(from);
    Text text(command);
    component_->NotifyMe(name.Address(), text.Address());
    if (command == L"All,LZ") ShowLanguage();
    OnCommand(from, command);
}

void Module::ShowLanguage() {
    Text folder;
    Text caption;
    diagnostics_->get_LanguagePath(folder.Address());
    diagnostics_->get_Caption(caption.Address());
    Say(L"language folder " + folder.Value() + L", the component's caption is \"" + caption.Value() + L"\"");
}

void Module::OnLine(const std::wstring& line) {
    const std::size_t blank = line.find(L' ');
    const std::wstring word = line.substr(0, blank);
    const Text rest(blank == std::wstring::npos ? L"" : line.substr(blank + 1));
    if (word == L"quit") {
        DestroyWindow(window_);
    } else if (word == L"all") {
        diagnostics_->AP_SendCmdAll(rest.Get());
    } else if (word == L"language") {
        char folder[MAX_PATH] = "";
        WideCharToMultiByte(CP_ACP, 0, rest.Value().c_str(), -1, folder, MAX_PATH, nullptr, nullptr);
        E_SetString("LANGUAGEPATH", folder);
        diagnostics_->AP_SendCmdAll(Text(L"All,LZ").Get());
    } else if (!word.empty()) {
        diagnostics_->AP_SendCmd(Text(word).Get(), rest.Get());
    }
}

void Module::Say(const std::wstring& text) {
    std::printf("%s: %s\n", Utf8(name_).c_str(), Utf8(text).c_str());
    std::fflush(stdout);
    if (list_ == nullptr) return;
    SendMessageW(list_, LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));  // the newest line is the first
}
