// Compares the time to localise a form with the time to set a caption and a font on each of its controls directly. Both
// use the same texts in memory and start with a freshly loaded form. Prints the ratio and the time per control.
//     LocalisationBench [ROUNDS]
#include <cstdio>
#include <functional>
#include <string>

#include "host/Composition.h"
#include "runtime/Form.h"
#include "services/Localisation.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "tests/bench/Timing.h"
#include "tests/support/InMemoryKernel.h"
#include "tests/support/MemoryPorts.h"

namespace {

using runtime::Control;
using runtime::ControlKind;
using runtime::String;

/// A form with labels, buttons and pictures in turn, each with its own tag.
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
    // The in-memory files log each look-up. The log must not grow from round to round.
    files.ClearLog();
    return tests::TimeOf<std::micro>([&] { action(form); });
}

void Compare(int controls, int rounds, runtime::headless::MemoryFiles& files) {
    WideForm form(controls);
    const tests::Medians times = tests::InTurns(
        0, rounds, [&] { return MicrosecondsOf(form, files, services::LocaliseForm); },
        [&] { return MicrosecondsOf(form, files, SetEach); });
    std::printf("%6d controls: %6.2f us a control, plain loop %6.2f us, ratio %.2f\n", controls, times.ours / controls,
                times.theirs / controls, times.Ratio());
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kLargest = 10'000;
    constexpr int kRounds = 31;
    const int rounds = tests::CountFrom(argc, argv, kRounds);

    tests::MemoryPorts memory;
    const runtime::Ports ports = memory.All();
    tests::InMemoryKernel kernel;
    host::Composition composition(ports, kernel);
    memory.files.AddFile(u"C:\\de\\K4TBackProcess.txt", TextsFor(kLargest));
    composition.Reader().UseLanguageFolder([] { return String(u"C:\\de"); });
    services::Values().uiFont = {u"Arial", 9, 0};
    for (const int controls : {100, 1'000, kLargest}) Compare(controls, rounds, memory.files);
}
