#include "tests/kernel/Peer.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/TestFolder.h"

namespace tests::kernel {
namespace {

using runtime::String;
using runtime::win32::KernelHandle;
using runtime::win32::Wide;

constexpr DWORD kMaxWait = 60'000;  // milliseconds

struct Pipe {
    KernelHandle reading;
    KernelHandle writing;
};

Pipe MakePipe() {
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (!CreatePipe(&reading, &writing, nullptr, 0)) throw std::runtime_error("no pipe");
    return {KernelHandle(reading), KernelHandle(writing)};
}

HANDLE Inherited(const KernelHandle& handle) {
    SetHandleInformation(handle.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    return handle.Get();
}

}  // namespace

runtime::String KernelFolder() {
    return runtime::win32::FolderOf(TestFolder()) + u"\\dev";
}

Peer::Peer() {
    Pipe commands = MakePipe();
    Pipe answers = MakePipe();
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = Inherited(commands.reading);
    startup.hStdOutput = Inherited(answers.writing);
    startup.hStdError = startup.hStdOutput;
    String commandLine = u'"' + TestFolder() + u"\\kernel_peer.exe\" \"" + KernelFolder() + u'"';
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(nullptr, Wide(commandLine.data()), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                        &startup, &made)) {
        throw std::runtime_error("the peer does not start");
    }
    CloseHandle(made.hThread);
    process_ = KernelHandle(made.hProcess);
    toPeer_ = std::move(commands.writing);
    fromPeer_ = std::move(answers.reading);
}

Peer::~Peer() {
    toPeer_.Reset();
    WaitForEnd();
}

void Peer::WaitForEnd() {
    if (WaitForSingleObject(process_.Get(), kMaxWait) == WAIT_OBJECT_0) return;
    ADD_FAILURE() << "the peer does not end";
    TerminateProcess(process_.Get(), 1);
}

std::string Peer::Request(const std::string& command) {
    Send(command);
    return ReadReply();
}

void Peer::Send(const std::string& command) {
    const std::string line = command + '\n';
    DWORD written = 0;
    const BOOL done = WriteFile(toPeer_.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    if (!done || written != line.size()) throw std::runtime_error("cannot send a command to the peer");
}

std::string Peer::ReadReply() {
    std::string line;
    const ULONGLONG end = GetTickCount64() + kMaxWait;
    while (GetTickCount64() < end) {
        DWORD available = 0;
        if (!PeekNamedPipe(fromPeer_.Get(), nullptr, 0, nullptr, &available, nullptr)) return "gone";
        if (available == 0) {
            Sleep(1);
            continue;
        }
        char c = 0;
        DWORD read = 0;
        if (!ReadFile(fromPeer_.Get(), &c, 1, &read, nullptr)) return "gone";
        if (c == '\n') return line;
        if (c != '\r') line += c;
    }
    return "no answer";
}

void Peer::Die() {
    Send("die");
    WaitForEnd();
}

void Peer::Kill() {
    TerminateProcess(process_.Get(), 1);
    WaitForEnd();
}

}  // namespace tests::kernel
