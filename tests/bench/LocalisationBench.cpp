// Compares two times: the time to localise a form, and the time to set captions and a font directly on its controls.
// Both use the same texts in memory and start with a newly loaded form.
#include <functional>
#include <string>

#include "runtime/Form.h"
#include "services/Localisation.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "tests/bench/Row.h"
#include "tests/support/ComponentFixture.h"

namespace {

using runtime::Control;
using runtime::ControlKind;
using runtime::String;

/// A form with labels, buttons and pictures in turn. Each control has its own tag.
class WideForm : public runtime::Form {
 public:
    explicit WideForm(int controls) : Form({.name = u"wide", .inner = {9000, 9000}}) {
        constexpr ControlKind kKinds[] = {ControlKind::kLabel, ControlKind::kButton, ControlKind::kPicture};
        for (int i = 0; i < controls; ++i) {
            const ControlKind kind = kKinds[i % 3];
            AddControl({.kind = kind,
                        .name = u"control",
                        .text = u"Text",
                        .tag = runtime::FromAscii(std::to_string(i)),
                        .tabIndex = kind == ControlKind::kButton ? i / 3 : runtime::ControlDesign::kNoIndex});
        }
    }
};

std::string TextsFor(int controls) {
    std::string texts;
    for (int i = 0; i < controls; ++i) texts += std::to_string(i) + " = Text " + std::to_string(i) + "\n";
    return texts;
}

void SetEach(runtime::Form& form) {
    const runtime::Font font{u"Arial", 9, 0, false};
    for (const auto& control : form.Controls()) {
        if (control->Kind() == ControlKind::kPicture) continue;
        control->SetFont(font);
        if (control->TakesFocus()) control->SetTabStop(false);
        control->SetText(services::GetLocalText(control->Text(), control->Tag()));
    }
}

double MicrosecondsOf(WideForm& form, runtime::headless::MemoryFiles& files,
                      const std::function<void(runtime::Form&)>& action) {
    form.Unload();
    form.EnsureLoaded();
    // The in-memory files log each access. The log must not grow from round to round.
    files.ClearLog();
    return tests::TimeOf([&] { action(form); });
}

void Compare(int controls, runtime::headless::MemoryFiles& files) {
    WideForm form(controls);
    tests::Measure(
        {"localising " + std::to_string(controls) + " controls", "a plain loop", 1.3, 5},
        [&] { return MicrosecondsOf(form, files, services::LocaliseForm); },
        [&] { return MicrosecondsOf(form, files, SetEach); });
}

/// Uses the fixture of the component tests outside a test.
class Bench : public tests::HeadlessComponentTest {
 public:
    Bench() {
        memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", TextsFor(kLargest));
        reader_.UseLanguageFolder([] { return String(u"C:\\de"); });
        services::Values().uiFont = {u"Arial", 9, 0};
    }
    void Run() {
        for (const int controls : {10, 100, 1'000, kLargest}) Compare(controls, memory_.files);
    }

 private:
    static constexpr int kLargest = 10'000;

    void TestBody() override {}
};

}  // namespace

int main() {
    Bench().Run();
}
