// Several threads create, use and release instances at the same time. Home apartments begin and end during the test.
// Each thread must find a home or become the home.
#include <atomic>
#include <cstdio>
#include <functional>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "tests/com/ComponentLibrary.h"
#include "tests/support/Rounds.h"

namespace tests::com {
namespace {

constexpr int kThreads = 4;

class HomeRace : public testing::Test {
 protected:
    HomeRace() { EXPECT_EQ(S_OK, library_.Register()); }
    ~HomeRace() override {
        EXPECT_EQ(S_OK, library_.Unregister());
        EXPECT_EQ(S_OK, library_.CanUnload());
    }

    /// Does the work of one thread. Afterwards the thread dispatches messages until all threads have finished, because
    /// it may be the home of their instances.
    void Work(int rounds) {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        for (int i = 0; i < rounds; ++i) {
            MakeUseAndRelease();
            ServeMessages();
        }
        --working_;
        while (working_ > 0) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
            ServeMessages();
        }
        CoUninitialize();
    }

    const ComponentLibrary library_;
    std::atomic<int> working_ = kThreads;
    std::atomic<int> created_ = 0;
    std::mutex guard_;
    std::multiset<std::string> failures_;

 private:
    void MakeUseAndRelease() {
        ComPtr<_clsQmxBackProcess> instance;
        RecordFailure(CoCreateInstance(CLSID_clsQmxBackProcess, nullptr, CLSCTX_INPROC_SERVER, IID__clsQmxBackProcess,
                                       instance.PutVoid()),
                      "create ");
        if (!instance) return;
        ++created_;
        short mode = 0;
        VARIANT_BOOL result = VARIANT_FALSE;
        RecordFailure(instance->Load(&mode, &result), "load ");
    }
    void RecordFailure(HRESULT result, const char* step) {
        if (SUCCEEDED(result)) return;
        const std::scoped_lock lock(guard_);
        failures_.insert(step + Hex(result));
    }
};

TEST_F(HomeRace, FourThreadsCreateAndRelease_NoCreationFails) {
    const int rounds = Rounds(600, 60) / kThreads;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back([&] { Work(rounds); });
    for (std::thread& thread : threads) thread.join();
    std::printf("%d created\n", created_.load());
    EXPECT_EQ(kThreads * rounds, created_);
    EXPECT_THAT(failures_, testing::IsEmpty());
}

}  // namespace
}  // namespace tests::com
