// Tests forms after failures. The window system refuses or corrects a request, a handler fails or unloads the form, or
// other code destroys the window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/HandledForm.h"
#include "tests/support/InputForm.h"
#include "tests/support/RuntimeFixture.h"

namespace runtime {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

constexpr Twips kMaxWidthHere = 4500;

/// A control that accepts no items while `isFull` is true.
struct FullControl : headless::MemoryControl {
    FullControl(headless::MemoryWindow& formWindow, const ControlLook& controlLook, const bool& full)
        : MemoryControl(formWindow, controlLook), isFull(full) {}

    void Add(const String& item) override {
        if (isFull) throw Error(kOutOfMemory);
        MemoryControl::Add(item);
    }

    const bool& isFull;
};

/// A window system that refuses controls or items, or limits the width of windows to kMaxWidthHere. The test chooses
/// the failure. The window system calls `onModalEnd` when a modal loop ends.
class FaultyWindows : public headless::MemoryWindows {
 public:
    std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) override {
        return std::make_unique<Loop>(*this, MemoryWindows::BeginModal(window));
    }
    std::unique_ptr<NativeWindow> MakeWindow(const WindowDesign& design, WindowEvents& events) override {
        return std::make_unique<Window>(*this, design, events);
    }

    int refuseControls = 0;
    bool refusesItems = false;
    bool limitsWidth = false;
    std::function<void()> onModalEnd;

 private:
    class Loop : public ModalLoop {
     public:
        Loop(FaultyWindows& system, std::unique_ptr<ModalLoop> loop) : system_(system), loop_(std::move(loop)) {}

        void Run() override { loop_->Run(); }
        void End() override {
            loop_->End();
            if (const auto happening = std::exchange(system_.onModalEnd, {})) happening();
        }

     private:
        FaultyWindows& system_;
        std::unique_ptr<ModalLoop> loop_;
    };

    class Window : public headless::MemoryWindow {
     public:
        Window(FaultyWindows& system, const WindowDesign& design, WindowEvents& events)
            : MemoryWindow(system, design, events, kHandle), system_(system) {}

        NativeControl& AddControl(const ControlLook& look) override {
            if (system_.refuseControls > 0) {
                --system_.refuseControls;
                throw Error(kOutOfMemory);
            }
            controls.push_back(std::make_unique<FullControl>(*this, look, system_.refusesItems));
            return *controls.back();
        }
        void SetBounds(const Rect& newOuter) override {
            Rect allowed = newOuter;
            if (system_.limitsWidth) allowed.width = std::min(allowed.width, kMaxWidthHere);
            MemoryWindow::SetBounds(allowed);
        }

     private:
        static constexpr NativeHandle kHandle = 0x10;
        FaultyWindows& system_;
    };
};

class WindowFailures : public tests::HeadlessTest {
 protected:
    WindowFailures() { UsePorts(&stubbornPorts_); }

    FaultyWindows windows_;
    Ports stubbornPorts_ = tests::WithPort(ports_, windows_);
    tests::HandledForm form_;
};

TEST_F(WindowFailures, ControlIsRefused_FormLoadsAtTheNextAccess) {
    windows_.refuseControls = 1;
    EXPECT_EQ(ErrorOf([&] { form_.Caption(); }), kOutOfMemory);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
    EXPECT_THAT(windows_.Windows(), IsEmpty());
    EXPECT_THAT(form_.log, IsEmpty());
    EXPECT_EQ(form_.Caption(), u"Design");
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(WindowFailures, SizeIsCorrected_FormHasTheCorrectedSizeAndRaisesOneResize) {
    form_.EnsureLoaded();
    windows_.limitsWidth = true;
    form_.SetWidth(9000);
    EXPECT_EQ(form_.Width(), kMaxWidthHere);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
}

TEST_F(WindowFailures, SizeIsCorrected_ResizeHandlerMayUnload) {
    form_.EnsureLoaded();
    windows_.limitsWidth = true;
    form_.onResize = [&] { form_.Unload(); };
    form_.SetWidth(9000);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load", "resize", "query 1", "unload"));
}

TEST_F(WindowFailures, OtherWindowsAreEnabledDuringUnload_FormIsAlreadyUnloaded) {
    bool wasLoaded = true;
    windows_.onModalEnd = [&] {
        wasLoaded = form_.IsLoaded();
        form_.Unload();
    };
    windows_.Post([&] { form_.Unload(); });
    form_.ShowModal();
    EXPECT_FALSE(wasLoaded);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize", "activate", "query 1", "unload"));
}

TEST_F(WindowFailures, AccessKeyDuringUnload_DoesNotLoadTheForm) {
    tests::InputForm inputs;
    // The window still exists when the other windows are enabled again.
    windows_.onModalEnd = [this] { EXPECT_FALSE(windows_.Last().Events().AccessKey(u'a')); };
    windows_.Post([&] { inputs.Unload(); });
    inputs.ShowModal();
    EXPECT_FALSE(inputs.IsLoaded());
    EXPECT_THAT(inputs.log, IsEmpty());
}

class ListFailures : public WindowFailures {
 protected:
    tests::InputForm inputs_;
};

TEST_F(ListFailures, ItemIsRefused_ItemIsNotStored) {
    inputs_.list.AddItem(u"A");
    windows_.refusesItems = true;
    EXPECT_EQ(ErrorOf([&] { inputs_.list.AddItem(u"B"); }), kOutOfMemory);
    EXPECT_EQ(inputs_.list.ItemCount(), 1);
    windows_.refusesItems = false;
    inputs_.list.AddItem(u"C");
    EXPECT_EQ(inputs_.list.Item(1), u"C");
}

/// A form with a button. Its only handlers consume the key A.
class SilentForm : public Form {
 public:
    SilentForm() : Form({.name = u"silent", .inner = {3000, 1500}}) {
        AddControl({.kind = ControlKind::kButton, .name = u"button", .bounds = {60, 60, 1125, 345}, .tabIndex = 0});
    }

 protected:
    static constexpr std::int16_t kKeyA = 65;
    void OnKeyDown(std::int16_t& keyCode, std::int16_t) override { keyCode = keyCode == kKeyA ? 0 : keyCode; }
    void OnKeyUp(std::int16_t& keyCode, std::int16_t) override { keyCode = keyCode == kKeyA ? 0 : keyCode; }
};

class FormWithKeyHandlersOnly : public tests::HeadlessTest {
 protected:
    WindowEvents& Events() { return memory_.windows.Last().Events(); }

    SilentForm form_;
};

TEST_F(FormWithKeyHandlersOnly, CharactersAndClicks_HaveNoEffect) {
    form_.SetVisible(true);
    EXPECT_FALSE(Events().KeyPress(u'a'));
    Events().Clicked(0);
    EXPECT_TRUE(form_.IsLoaded());
}

TEST_F(FormWithKeyHandlersOnly, HandlersConsumeAKey_DownAndUpAreConsumed) {
    form_.SetVisible(true);
    EXPECT_TRUE(Events().KeyDown(65, 0));
    EXPECT_FALSE(Events().KeyDown(66, 0));
    EXPECT_TRUE(Events().KeyUp(65, 0));
    EXPECT_FALSE(Events().KeyUp(66, 0));
}

TEST_F(FormWithKeyHandlersOnly, ShowModalWhileVisible_IsError400) {
    form_.SetVisible(true);
    EXPECT_EQ(ErrorOf([&] { form_.ShowModal(); }), kFormAlreadyDisplayed);
    EXPECT_TRUE(form_.Visible());
}

class FirstShow : public tests::HeadlessTest {
 protected:
    tests::HandledForm form_;
};

TEST_F(FirstShow, ResizeHandlerFails_FormStaysHiddenUntilTheNextShow) {
    form_.onResize = [] { throw Error(kOverflow); };
    EXPECT_EQ(ErrorOf([&] { form_.SetVisible(true); }), kOverflow);
    EXPECT_FALSE(form_.Visible());
    EXPECT_FALSE(memory_.windows.Last().visible);
    form_.SetVisible(true);
    EXPECT_TRUE(form_.Visible());
    EXPECT_TRUE(memory_.windows.Last().visible);
}

TEST_F(FirstShow, ResizeHandlerMinimises_FormAppearsMinimised) {
    form_.onResize = [&] { form_.SetState(WindowState::kMinimised); };
    form_.SetVisible(true);
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
    EXPECT_EQ(memory_.windows.Last().state, WindowState::kMinimised);
    EXPECT_TRUE(memory_.windows.Last().visible);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
}

TEST_F(FirstShow, ResizeHandlerUnloads_IsError364) {
    form_.onResize = [&] { form_.Unload(); };
    EXPECT_EQ(ErrorOf([&] { form_.SetVisible(true); }), kObjectWasUnloaded);
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FirstShow, LoadHandlerUnloads_NextAccessInTheHandlerIsError364) {
    std::int32_t error = 0;
    form_.onLoad = [&] {
        form_.Unload();
        error = ErrorOf([&] { form_.Caption(); });
    };
    EXPECT_EQ(ErrorOf([&] { form_.EnsureLoaded(); }), kObjectWasUnloaded);
    EXPECT_EQ(error, kObjectWasUnloaded);
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
    form_.onLoad = {};
    form_.EnsureLoaded();
    EXPECT_TRUE(form_.IsLoaded());
}

class LostWindow : public tests::HeadlessTest {
 protected:
    void Lose() { memory_.windows.Last().Events().Lost(); }

    tests::HandledForm form_;
};

TEST_F(LostWindow, HandlersRefuse_FormIsUnloadedAnyway) {
    form_.EnsureLoaded();
    form_.refusesQuery = true;
    Lose();
    EXPECT_FALSE(form_.IsLoaded());
    form_.refusesQuery = false;
    form_.refusesUnload = true;
    form_.EnsureLoaded();
    Lose();
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
    EXPECT_THAT(form_.log, ElementsAre("load", "query 2", "load", "query 2", "unload"));
}

TEST_F(LostWindow, LostDuringUnload_RefusalIsIgnored) {
    form_.EnsureLoaded();
    form_.refusesUnload = true;
    form_.onUnload = [this] { Lose(); };
    EXPECT_TRUE(form_.Unload());
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
    form_.onUnload = {};
    form_.EnsureLoaded();
    EXPECT_FALSE(form_.Unload());  // the refusal counts, because this window is new
    form_.refusesUnload = false;
}

TEST_F(LostWindow, HandlerFails_ErrorIsIgnored) {
    form_.EnsureLoaded();
    form_.onUnload = [] { throw Error(kOverflow); };
    Lose();
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(LostWindow, AbandonedDuringLoadOrUnload_IsUnloaded) {
    form_.onLoad = [this] {
        form_.AbandonWindow();
        form_.onLoad = {};
        EXPECT_EQ(form_.Caption(), u"Design");  // loads the form again, because the first load has ended
    };
    form_.EnsureLoaded();
    form_.onUnload = [this] {
        form_.AbandonWindow();
        EXPECT_FALSE(form_.IsUnloading());
    };
    form_.Unload();
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
}

class LateControl : public tests::HeadlessTest {
 protected:
    class Extensible : public Form {
     public:
        Extensible() : Form({.name = u"extensible", .inner = {3000, 1500}}) {}
        void Extend() { AddControl({.kind = ControlKind::kLabel, .name = u"late", .bounds = {0, 0, 300, 300}}); }
    };
    Extensible form_;
};

TEST_F(LateControl, IsRefusedWhileTheFormIsLoaded) {
    form_.EnsureLoaded();
    EXPECT_EQ(ErrorOf([&] { form_.Extend(); }), kInvalidProcedureCall);
    EXPECT_TRUE(form_.Controls().empty());
    form_.Unload();
    form_.Extend();
    EXPECT_EQ(form_.Controls().size(), 1u);
}

class FailingUnload : public tests::HeadlessTest {
 protected:
    FailingUnload() {
        form_.EnsureLoaded();
        form_.onQueryUnload = [] { throw Error(kOverflow); };
    }

    tests::HandledForm form_;
};

TEST_F(FailingUnload, BothHandlersFail_FirstErrorIsThrown) {
    form_.onUnload = [] { throw Error(kPathNotFound); };
    EXPECT_EQ(ErrorOf([&] { form_.Unload(); }), kOverflow);
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FailingUnload, QueryHandlerFails_LaterRefusalIsIgnored) {
    form_.refusesUnload = true;
    EXPECT_EQ(ErrorOf([&] { form_.Unload(); }), kOverflow);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
}

}  // namespace
}  // namespace runtime
