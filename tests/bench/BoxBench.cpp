// Compares the time of a call of the suite's message box with the time of a call of the system's message box. Each box
// is shown, painted, and clicked at once.
#include "dialogs/frmQMXMsgBox.h"
#include "tests/bench/AnsweringOwner.h"
#include "tests/support/ComponentFixture.h"

namespace {

constexpr std::int32_t kYes = 6;

void AskOurs() {
    tests::Require(dialogs::AskWithSuiteBox(u"Overwrite?", 8, u"Title") == kYes, "our answer");
}

void AskSystem(HWND owner) {
    tests::Require(MessageBoxW(owner, L"Overwrite?", L"Title", MB_YESNOCANCEL | MB_ICONQUESTION) == kYes, "the answer");
}

void Compare() {
    const tests::AnsweringOwner owner(L"&Yes");
    tests::Measure(
        {"message box, open to closed", "the system's message box", 1.0, 15}, [] { return tests::TimeOf(AskOurs); },
        [&] { return tests::TimeOf([&] { AskSystem(owner.Handle()); }); });
}

/// Uses the fixture of the component tests outside a test.
class Bench : public tests::ComponentTest {
    void TestBody() override {}
};

}  // namespace

int main() {
    const Bench surroundings;
    Compare();
}
