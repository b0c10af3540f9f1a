// Tests clients that end without a release. One process ends with a loaded form, and another process is killed while
// its sink is connected. Threads end while they show a message.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

#include "tests/com/ClientProcess.h"
#include "tests/com/ComponentLibrary.h"
#include "tests/com/Sink.h"
#include "tests/support/TestFolder.h"
#include "tests/windows/DialogDriver.h"

namespace tests::com {
namespace {

using runtime::win32::KernelHandle;
using testing::ElementsAre;

TEST(LeavingClient, ProcessEndsWithALoadedForm_WindowIsNotDestroyed) {
    const ClientProcess client(L"exit \"" + ComponentDll().wstring() + L'"');
    EXPECT_EQ(0u, client.ExitCode());
}

TEST(LeavingClient, ThreadsEndWhileTheyShowMessages_LaterErrorsAreShown) {
    const ClientProcess client(L"lose \"" + ComponentDll().wstring() + L'"');
    EXPECT_EQ(0u, client.ExitCode());
}

class KilledClient : public testing::Test {
 protected:
    KilledClient() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        EXPECT_EQ(S_OK, library_.Register());
    }
    ~KilledClient() override {
        EXPECT_EQ(S_OK, library_.Unregister());
        std::filesystem::remove(file_);
        CoUninitialize();
    }

    /// Lets another process connect a sink to `instance` and kills that process.
    void ConnectAndKill(IUnknown* instance) {
        WriteMarshalled(instance);
        const std::wstring name = L"Local\\k4t-killed-client-" + std::to_wstring(GetCurrentProcessId());
        const KernelHandle connected(CreateEventW(nullptr, TRUE, FALSE, name.c_str()));
        const ClientProcess client(L"listen \"" + file_.wstring() + L"\" " + name);
        ASSERT_TRUE(client.WaitFor(connected.Get()));
        client.Kill();
    }

    static std::size_t ConnectionCount(IUnknown* instance) {
        ComPtr<IEnumConnections> connections;
        EXPECT_EQ(S_OK, EventsOf(instance)->EnumConnections(connections.Put()));
        std::size_t count = 0;
        for (CONNECTDATA each{}; connections->Next(1, &each, nullptr) == S_OK; ++count) each.pUnk->Release();
        return count;
    }

    const ComponentLibrary library_;

 private:
    void WriteMarshalled(IUnknown* instance) const {
        ComPtr<IStream> stream;
        ASSERT_EQ(S_OK, CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
        ASSERT_EQ("0x00000000", Hex(CoMarshalInterface(stream.Get(), IID_IUnknown, instance, MSHCTX_LOCAL, nullptr,
                                                       MSHLFLAGS_NORMAL)));
        stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
        std::vector<char> bytes(4096);
        ULONG read = 0;
        stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read);
        std::ofstream(file_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(read));
    }

    const std::filesystem::path file_ =
        std::filesystem::path(TestFolder()) / (L"marshalled_" + std::to_wstring(GetCurrentProcessId()));
};

/// Closes message boxes that no test expects, and counts the boxes.
class UnwantedBoxes {
 public:
    UnwantedBoxes() { timer_ = SetTimer(nullptr, 0, 50, OnTimer); }
    UnwantedBoxes(const UnwantedBoxes&) = delete;
    UnwantedBoxes& operator=(const UnwantedBoxes&) = delete;
    ~UnwantedBoxes() { KillTimer(nullptr, timer_); }

    static inline int count = 0;

 private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
        const HWND box = ShownDialog();
        if (box == nullptr) return;
        ++count;
        PostMessageW(box, WM_CLOSE, 0, 0);
    }

    UINT_PTR timer_ = 0;
};

TEST_F(KilledClient, Ex_ShowsNoMessageAndRemovesTheConnection) {
    auto instance = library_.Create();
    const auto sink = Sink::Make();
    Load(instance.Get());
    ConnectAndKill(instance.Get());
    Advise(instance.Get(), sink.Get());
    ASSERT_EQ(2u, ConnectionCount(instance.Get()));
    const UnwantedBoxes boxes;
    UnwantedBoxes::count = 0;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(S_OK, Notify(instance.Get(), u"All,EX"));
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    std::printf("EX after a client was killed: %.1f ms\n", taken.count());
    EXPECT_EQ(0, UnwantedBoxes::count);
    EXPECT_THAT(sink->received, ElementsAre(kShutdown));
    EXPECT_EQ(1u, ConnectionCount(instance.Get()));
}

}  // namespace
}  // namespace tests::com
