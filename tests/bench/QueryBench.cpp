// Compares the time to open the suite's query dialog with a long list with the time of a bare list box of the same size
// and content: from the call until the window is painted. Both alternate in one run. For growing numbers of items,
// prints the medians, their ratio, and the time per thousand items.
//     query_bench [ROUNDS]
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "dialogs/Qmxquery.h"
#include "tests/bench/AnsweringOwner.h"
#include "tests/support/ComponentFixture.h"

namespace {

using runtime::String;

std::vector<String> Values(int items) {
    std::vector<String> values = {u""};
    for (int i = 1; i <= items; ++i) values.push_back(u"Item number " + runtime::FromAscii(std::to_string(i)));
    return values;
}

double TimeOfDialog(const tests::AnsweringOwner& owner, std::vector<String> values) {
    const auto last = static_cast<std::int32_t>(values.size()) - 1;
    std::int32_t index = last - 1;
    const auto start = tests::Clock::now();
    dialogs::AskQuery(u"Title", u"Which one?", values, dialogs::kList, index, false, u"");
    if (index != last) {
        std::fprintf(stderr, "wrong answer %d\n", static_cast<int>(index));
        std::exit(1);
    }
    return tests::TimeBetween<std::milli>(start, owner.ShownAt());
}

double TimeOfListBox(HWND owner, const std::vector<String>& values) {
    HWND list = nullptr;
    const double time = tests::TimeOf<std::milli>([&] {
        list = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr, WS_CHILD | WS_VSCROLL | LBS_NOTIFY, 4, 75, 365,
                               56, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
        for (std::size_t i = 1; i < values.size(); ++i) {
            SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(runtime::win32::Wide(values[i])));
        }
        SendMessageW(list, LB_SETCURSEL, values.size() - 2, 0);
        ShowWindow(list, SW_SHOW);
        UpdateWindow(list);
    });
    DestroyWindow(list);
    return time;
}

void Compare(const tests::AnsweringOwner& owner, int items, int rounds) {
    const std::vector<String> values = Values(items);
    const tests::Medians times = tests::InTurns(
        1, rounds, [&] { return TimeOfDialog(owner, values); }, [&] { return TimeOfListBox(owner.Handle(), values); });
    std::printf("%6d items  dialog %8.2f ms  bare list box %8.2f ms  ratio %5.2f  dialog per thousand %6.2f ms\n",
                items, times.ours, times.theirs, times.Ratio(), times.ours * 1000 / items);
}

/// The fixture of component tests, without a test.
class Bench : public tests::ComponentTest {
    void TestBody() override {}
};

}  // namespace

int main(int argc, char** argv) {
    constexpr int kRounds = 15;
    const int rounds = tests::CountFrom(argc, argv, kRounds);
    const Bench surroundings;
    const tests::AnsweringOwner owner(L"Accept");
    for (const int items : {1'250, 2'500, 5'000, 10'000, 20'000}) Compare(owner, items, rounds);
}
