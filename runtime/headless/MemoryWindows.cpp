#include "runtime/headless/MemoryWindows.h"

#include <algorithm>
#include <utility>

#include "runtime/Error.h"
#include "runtime/TextLayout.h"
#include "runtime/headless/FixedMeasure.h"

namespace runtime::headless {
namespace {

// The size of the title bar and frame, in twips. Round numbers keep the arithmetic in tests simple.
constexpr Size kSizableFrame{120, 405};
constexpr Size kFixedFrame{90, 375};
constexpr std::uint32_t kFirstMessage = 0xC000;  // start of the range of registered messages
constexpr NativeHandle kHandleStep = 0x10;

Size FrameOf(BorderStyle border) {
    return border == BorderStyle::kSizable ? kSizableFrame : kFixedFrame;
}

}  // namespace

std::unique_ptr<NativeWindow> MemoryWindows::MakeWindow(const WindowDesign& design, WindowEvents& events) {
    if (refuseWindows > 0) {
        --refuseWindows;
        throw Error(kOutOfMemory);
    }
    const NativeHandle handle = std::exchange(nextHandle_, nextHandle_ + kHandleStep);
    return std::make_unique<MemoryWindow>(*this, design, events, handle);
}

Size MemoryWindows::OuterSize(Size inner, BorderStyle border) {
    const Size frame = FrameOf(border);
    return Grid().Whole({0, 0, inner.width + frame.width, inner.height + frame.height}).Size();
}

std::uint32_t MemoryWindows::RegisterMessage(StringView name) {
    const auto found = std::find(messages.begin(), messages.end(), name);
    if (found == messages.end()) {
        messages.emplace_back(name);
        return kFirstMessage + static_cast<std::uint32_t>(messages.size()) - 1;
    }
    return kFirstMessage + static_cast<std::uint32_t>(found - messages.begin());
}

bool MemoryWindows::RunOne() {
    if (pending_.empty()) return false;
    const auto happening = std::move(pending_.front());
    pending_.pop_front();
    happening();
    return true;
}

void MemoryWindows::DoEvents() {
    while (RunOne()) {
    }
}

Size MemoryWindows::TextSize(StringView text, const Font& font, Twips wrapWidth) {
    FixedMeasure measure(font);
    const TextLayout layout = LayOut(text, wrapWidth == kEndlessWidth ? kNoWrap : static_cast<int>(wrapWidth), measure);
    return {static_cast<Twips>(layout.width), static_cast<Twips>(layout.height)};
}

std::unique_ptr<ResolutionScope> MemoryWindows::UseSystemResolution() {
    class Scope final : public ResolutionScope {
     public:
        explicit Scope(int& count) : count_(count) { ++count_; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() override { --count_; }

     private:
        int& count_;
    };
    return std::make_unique<Scope>(systemResolutions);
}

bool MemoryWindows::CopyToClipboard(StringView text) {
    if (!isClipboardInUse) clipboard = text;
    return !isClipboardInUse;
}

void MemoryWindows::PressWithAlt(char16_t character) {
    if (failsAltKeys) throw Error(kInvalidProcedureCall);
    altKeys += character;
    Post([this, character] {
        const auto active = std::find_if(windows_.rbegin(), windows_.rend(),
                                         [](const MemoryWindow* window) { return window->visible; });
        if (active != windows_.rend()) (*active)->Events().AccessKey(character);
    });
}

namespace {

/// Disables the other windows and runs queued actions until End is called.
class MemoryModal final : public ModalLoop {
 public:
    MemoryModal(MemoryWindows& system, NativeWindow& dialog) : system_(system) {
        for (MemoryWindow* window : system_.Windows()) {
            // Also disable hidden windows, because a hidden window may be shown while the dialog is open.
            if (window == &dialog || !window->enabled) continue;
            window->enabled = false;
            disabled_.push_back(window);
        }
    }
    MemoryModal(const MemoryModal&) = delete;
    MemoryModal& operator=(const MemoryModal&) = delete;
    ~MemoryModal() override { End(); }

    void Run() override {
        while (!ended_ && !system_.quitting) {
            if (!system_.RunOne()) throw Error(kInternalError, u"a modal form is open, but no event is left");
        }
    }

    void End() override {
        if (std::exchange(ended_, true)) return;
        for (MemoryWindow* window : disabled_) {
            const auto& windows = system_.Windows();
            if (std::find(windows.begin(), windows.end(), window) != windows.end()) window->enabled = true;
        }
    }

 private:
    MemoryWindows& system_;
    std::vector<MemoryWindow*> disabled_;
    bool ended_ = false;
};

}  // namespace

std::unique_ptr<ModalLoop> MemoryWindows::BeginModal(NativeWindow& window) {
    return std::make_unique<MemoryModal>(*this, window);
}

MemoryWindow::MemoryWindow(MemoryWindows& system, const WindowDesign& design, WindowEvents& events, NativeHandle handle)
    : caption(design.caption),
      border(design.border),
      isRightToLeft(design.isRightToLeft),
      outer(system.Grid().Whole(design.outer)),
      backColour(design.backColour),
      system_(system),
      events_(events),
      handle_(handle) {
    system_.windows_.push_back(this);
    events_.BoundsChanged(outer, std::nullopt);
}

MemoryWindow::~MemoryWindow() {
    std::erase(system_.windows_, this);
    if (visible && system_.onWindowHidden) system_.onWindowHidden();
}

void MemoryWindow::SetBounds(const Rect& newOuter) {
    const Rect before = std::exchange(outer, system_.Grid().Whole(newOuter));
    places.emplace_back(outer.left, outer.top);
    if (outer != before) events_.BoundsChanged(outer, visible ? std::optional(state) : std::nullopt);
}

void MemoryWindow::Show(WindowState newState) {
    state = newState;
    const bool appears = !std::exchange(visible, true);
    // Report the change although the form itself makes it, because Windows reports it too.
    events_.VisibilityChanged(true);
    // A window that was hidden becomes active, unless it is minimised.
    if (appears && state != WindowState::kMinimised) events_.Activated();
}

void MemoryWindow::Hide() {
    if (!std::exchange(visible, false)) return;
    events_.VisibilityChanged(false);
    if (system_.onWindowHidden) system_.onWindowHidden();
}

void MemoryWindow::SetState(WindowState newState) {
    if (!visible) return;
    state = newState;
    events_.BoundsChanged(outer, state);
}

Size MemoryWindow::InnerSize() const {
    const Size frame = FrameOf(border);
    return {std::max(0.0F, outer.width - frame.width), std::max(0.0F, outer.height - frame.height)};
}

NativeControl& MemoryWindow::AddControl(const ControlLook& look) {
    controls.push_back(std::make_unique<MemoryControl>(*this, look));
    return *controls.back();
}

MemoryControl& MemoryWindow::Control(StringView name) const {
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [name](const auto& control) { return control->look.name == name; });
    if (found == controls.end()) throw Error(kPropertyNotSupported);
    return **found;
}

}  // namespace runtime::headless
