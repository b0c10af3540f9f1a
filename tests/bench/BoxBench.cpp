// Compares the time of the suite's message box with that of the system's: from the call until it returns, with a box
// that is shown, painted and clicked at once.
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

/// The fixture of component tests, without a test.
class Bench : public tests::ComponentTest {
    void TestBody() override {}
};

}  // namespace

int main() {
    const Bench surroundings;
    Compare();
}
