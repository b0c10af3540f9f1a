// What localising a form costs beside setting a caption and a font on each of its controls, known by their kind. Both
// have the same texts at hand and start from a freshly loaded form, all in memory; afterwards the ratio and the cost
// per control are printed.
//     LocalisationBench [ROUNDS]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "kernel_api/dev/BuiltInReader.h"
#include "kernel_api/dev/InMemoryKernel.h"
#include "runtime/Form.h"
#include "runtime/Ports.h"
#include "runtime/headless/FixedProcess.h"
#include "runtime/headless/MemoryFiles.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/MemoryWindows.h"
#include "runtime/headless/PlainLocale.h"
#include "runtime/headless/RecordingHelp.h"
#include "runtime/headless/ScriptedFonts.h"
#include "runtime/headless/ScriptedMessageBox.h"
#include "services/Localisation.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"

namespace {

using runtime::Control;
using runtime::ControlKind;
using runtime::String;

/// Labels, buttons and pictures in turn, each with a tag of its own.
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
    // The twin notes each look-up; its notes must not grow from round to round.
    files.ClearLog();
    const auto start = std::chrono::steady_clock::now();
    action(form);
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

double MedianOf(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void Compare(int controls, int rounds, runtime::headless::MemoryFiles& files) {
    WideForm form(controls);
    std::vector<double> ours;
    std::vector<double> plain;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(MicrosecondsOf(form, files, services::LocaliseForm));
        plain.push_back(MicrosecondsOf(form, files, SetEach));
    }
    std::printf("%6d controls: %6.2f us a control, plain loop %6.2f us, ratio %.2f\n", controls,
                MedianOf(ours) / controls, MedianOf(plain) / controls, MedianOf(ours) / MedianOf(plain));
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kLargest = 10'000;
    constexpr int kRounds = 31;
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : kRounds;

    namespace headless = runtime::headless;
    headless::MemoryWindows windows;
    headless::MemorySettings settings;
    headless::MemoryFiles files;
    headless::FixedProcess process;
    headless::PlainLocale locale;
    headless::ScriptedFonts fonts;
    headless::ScriptedMessageBox messageBox;
    headless::RecordingHelp help;
    const runtime::Ports ports{windows, settings, files, process, locale, fonts, messageBox, help};
    runtime::UsePorts(&ports);
    kernel_api::dev::InMemoryKernel kernel;
    kernel_api::dev::BuiltInReader reader(files, settings, locale);
    kernel_api::UseKernel(&kernel);
    kernel_api::UseReader(&reader);
    files.AddFile(u"C:\\de\\K4TBackProcess.txt", TextsFor(kLargest));
    reader.UseLanguageFolder([] { return String(u"C:\\de"); });
    services::processValues.uiFont = {u"Arial", 9, 0};
    for (const int controls : {100, 1'000, kLargest}) Compare(controls, rounds, files);
    kernel_api::UseReader(nullptr);
    kernel_api::UseKernel(nullptr);
    runtime::UsePorts(nullptr);
}
