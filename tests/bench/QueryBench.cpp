// Compares two times: the time to open the suite's query dialog with a long list, and the time to open a bare list box
// of the same size and content. Both times end when the window is painted.
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
    tests::Require(index == last, "the answer");
    return tests::MicrosecondsBetween(start, owner.ShownAt());
}

double TimeOfListBox(HWND owner, const std::vector<String>& values) {
    HWND list = nullptr;
    const double time = tests::TimeOf([&] {
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

/// Only the measurements of long lists have a goal. With a short list, the dialog needs most of the time for its other
/// controls.
void Compare(const tests::AnsweringOwner& owner, int items) {
    constexpr int kLong = 1'250;
    const std::vector<String> values = Values(items);
    tests::Measure(
        {"query dialog, " + std::to_string(items) + " items", "a bare list box", items < kLong ? 0 : 1.2, 3},
        [&] { return TimeOfDialog(owner, values); }, [&] { return TimeOfListBox(owner.Handle(), values); });
}

/// Uses the fixture of the component tests outside a test.
class Bench : public tests::ComponentTest {
    void TestBody() override {}
};

}  // namespace

int main() {
    const Bench surroundings;
    const tests::AnsweringOwner owner(L"Accept");
    for (const int items : {10, 100, 1'250, 5'000, 20'000}) Compare(owner, items);
}
