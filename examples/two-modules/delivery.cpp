#include "delivery.h"

#include <algorithm>
#include <string_view>

#include "QmxKrn2K.h"

namespace {

constexpr wchar_t kWindowClass[] = L"PelorixMailbox";
constexpr wchar_t kMutex[] = L"Local\\PelorixMailbox";
constexpr DWORD kMaxWait = 2000;  // milliseconds
constexpr std::size_t kMaxBytes = 1'000'000;
constexpr char kModuleList[] = "AllAps";
constexpr char kComponent[] = "K4TBACKPROCESS";

/// Locks all queues and the module list. The lock is needed because an addition to a string takes two calls to the
/// kernel. One call reads the string, and one call replaces the string. If the owner is killed, the next waiting
/// process gets the lock. Every string is still complete, because one call replaces the whole string.
class Lock {
 public:
    Lock() : mutex_(CreateMutexW(nullptr, FALSE, kMutex)) {
        const DWORD waited = WaitForSingleObject(mutex_, kMaxWait);
        isHeld_ = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() {
        if (isHeld_) ReleaseMutex(mutex_);
        CloseHandle(mutex_);
    }
    explicit operator bool() const { return isHeld_; }

 private:
    HANDLE mutex_;
    bool isHeld_ = false;
};

std::string Get(const std::string& key) {
    const long address = E_GetString(key.c_str());
    return address > 0 ? std::string(reinterpret_cast<const char*>(address)) : std::string();
}

/// Returns false if the kernel does not hold the value afterwards.
bool Put(const std::string& key, const std::string& value) {
    std::string buffer = value;  // the kernel may write into the buffer
    E_SetString(key.c_str(), buffer.data());
    return Get(key) == value;
}

bool IsName(const std::wstring& name) {
    const auto isAllowed = [](wchar_t c) {
        return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= L'0' && c <= L'9') || c == L'_';
    };
    return !name.empty() && std::all_of(name.begin(), name.end(), isAllowed);
}

std::string Ascii(const std::wstring& name) {
    return std::string(name.begin(), name.end());
}

std::string QueueOf(const std::wstring& module) {
    return "PELORIX_MAIL_" + Ascii(module);
}

HWND MailboxOf(const std::wstring& module) {
    return IsName(module) ? FindWindowW(kWindowClass, module.c_str()) : nullptr;
}

/// Encodes a text in ASCII, because the ANSI code page cannot change an ASCII text. Also encodes control characters,
/// because the queues use tabs and line ends as separators.
std::string Escaped(const std::wstring& text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string escaped;
    for (const wchar_t c : text) {
        if (c >= 0x20 && c < 0x7F && c != L'\\') {
            escaped += static_cast<char>(c);
            continue;
        }
        escaped += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4) escaped += kDigits[(c >> shift) & 0xF];
    }
    return escaped;
}

std::wstring Unescaped(std::string_view text) {
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 6 <= text.size()) {
            plain += static_cast<wchar_t>(std::stoi(std::string(text.substr(i + 2, 4)), nullptr, 16));
            i += 5;
        } else {
            plain += static_cast<wchar_t>(text[i]);
        }
    }
    return plain;
}

std::vector<std::string> Split(const std::string& list) {
    std::vector<std::string> names;
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = std::min(list.find(',', start), list.size());
        names.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ",") + name;
    return list;
}

/// Adds the module and the component to the list. The component checks the list for its own name.
void AddToModuleList(const std::string& module) {
    std::vector<std::string> names = Split(Get(kModuleList));
    for (const std::string& name : {module, std::string(kComponent)}) {
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    Put(kModuleList, Joined(names));
}

void RemoveFromModuleList(const std::string& module) {
    std::vector<std::string> names = Split(Get(kModuleList));
    names.erase(std::remove(names.begin(), names.end(), module), names.end());
    Put(kModuleList, Joined(names));
}

}  // namespace

Mailbox::Mailbox(std::wstring name, Handler handler)
    : name_(std::move(name)), handler_(std::move(handler)), message_(RegisterWindowMessageW(L"PELORIX")) {
    const Lock lock;
    if (!lock || !IsName(name_) || MailboxOf(name_) != nullptr) return;
    // Delete the commands that an earlier process of the module did not receive.
    Put(QueueOf(name_), "");
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
    // The window is never shown. It is a top-level window, because FindWindow must find it.
    window_ = CreateWindowW(kWindowClass, name_.c_str(), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, windowClass.hInstance,
                            nullptr);
    if (window_ == nullptr) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    AddToModuleList(Ascii(name_));
}

Mailbox::~Mailbox() {
    if (!IsOpen()) return;
    const Lock lock;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    if (lock) RemoveFromModuleList(Ascii(name_));
}

Delivery Mailbox::Send(const std::wstring& module, const std::wstring& command) {
    const Lock lock;
    if (!lock) return Delivery::kBusy;
    const HWND addressee = MailboxOf(module);
    if (!IsOpen() || addressee == nullptr) return Delivery::kGone;
    const std::string queue = Get(QueueOf(module)) + Ascii(name_) + '\t' + Escaped(command) + '\n';
    if (queue.size() > kMaxBytes || !Put(QueueOf(module), queue)) return Delivery::kBusy;
    // Ignore a failure, for example if 10,000 messages are waiting for the addressee's thread. The command stays in the
    // queue and arrives with the next notification.
    PostMessageW(addressee, message_, 0, 0);
    return Delivery::kStored;
}

std::vector<std::wstring> Mailbox::Others() const {
    std::vector<std::wstring> others;
    for (const std::string& name : Split(Get(kModuleList))) {
        if (name != kComponent && name != Ascii(name_)) others.emplace_back(name.begin(), name.end());
    }
    return others;
}

LRESULT CALLBACK Mailbox::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* const mailbox = reinterpret_cast<Mailbox*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (mailbox == nullptr || message != mailbox->message_) return DefWindowProcW(window, message, wParam, lParam);
    mailbox->Receive();
    return 0;
}

/// A handler may run a message loop, for example when it calls the component or shows a dialog. Commands that arrive in
/// this loop stay in the queue, because the commands that this call has taken must be handled first.
void Mailbox::Receive() {
    if (isReceiving_) return;
    isReceiving_ = true;
    const auto taken = TakeAll();
    for (const auto& [from, command] : taken) handler_(from, command);
    isReceiving_ = false;
    if (!taken.empty()) PostMessageW(window_, message_, 0, 0);  // for commands that arrived while the handlers ran
}

std::vector<std::pair<std::wstring, std::wstring>> Mailbox::TakeAll() {
    std::string queue;
    {
        const Lock lock;
        if (!lock) {
            PostMessageW(window_, message_, 0, 0);
            return {};
        }
        queue = Get(QueueOf(name_));
        if (!queue.empty()) Put(QueueOf(name_), "");
    }
    std::vector<std::pair<std::wstring, std::wstring>> taken;
    for (std::size_t start = 0; start < queue.size();) {
        const std::size_t end = queue.find('\n', start);
        const std::string_view line = std::string_view(queue).substr(start, end - start);
        const std::size_t tab = line.find('\t');
        taken.emplace_back(Unescaped(line.substr(0, tab)), Unescaped(line.substr(tab + 1)));
        start = end + 1;
    }
    return taken;
}
