// Tests the life cycle and the properties of forms. FormLife and FormProperties use real windows in the Windows build,
// and windows in memory elsewhere. FormInMemory always uses windows in memory.
#include "runtime/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/Screen.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/HandledForm.h"
#include "tests/support/RuntimeFixture.h"

namespace runtime {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

class FormLife : public tests::RuntimeTest {
 protected:
    tests::HandledForm form_;
};

TEST_F(FormLife, ConstructorAndStateQueries_DoNotLoad) {
    EXPECT_EQ(form_.Name(), u"handled");
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_FALSE(form_.IsUnloading());
    EXPECT_TRUE(form_.Unload());
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_THAT(form_.log, IsEmpty());
    EXPECT_EQ(LoadedForms().Count(), 0u);
}

TEST_F(FormLife, DesignAccess_DoesNotLoad) {
    form_.SetCaption(u"Shown");
    form_.Unload();
    EXPECT_EQ(form_.Design().caption, u"Design");
    ASSERT_EQ(form_.ControlDesigns().size(), 1u);
    EXPECT_EQ(form_.ControlDesigns()[0]->text, u"ready");
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FormLife, IsLoadedByTheFirstAccessToAProperty) {
    EXPECT_EQ(form_.Caption(), u"Design");
    EXPECT_TRUE(form_.IsLoaded());
    EXPECT_EQ(&LoadedForms().At(0), &form_);
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(FormLife, IsLoadedByTheFirstAccessToAControl) {
    form_.Bar().SetText(u"hello");
    EXPECT_TRUE(form_.IsLoaded());
    EXPECT_EQ(form_.Bar().Text(), u"hello");
}

TEST_F(FormLife, Unload_RunsTheHandlersThenRemovesTheForm) {
    form_.EnsureLoaded();
    form_.onUnload = [] { EXPECT_EQ(LoadedForms().Count(), 1u); };
    form_.Unload();
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
}

TEST_F(FormLife, HandlersMayRefuseTheUnload) {
    form_.EnsureLoaded();
    form_.refusesQuery = true;
    form_.Unload();
    EXPECT_TRUE(form_.IsLoaded());
    form_.refusesQuery = false;
    form_.refusesUnload = true;
    form_.Unload();
    EXPECT_TRUE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "query 1", "unload"));
}

TEST_F(FormLife, AccessAfterUnload_LoadsTheDesignValues) {
    form_.SetCaption(u"Changed");
    form_.Move(3000, 3000);
    form_.SetWidth(9000);
    form_.Bar().SetText(u"changed");
    form_.Unload();
    EXPECT_EQ(form_.Caption(), u"Design");
    EXPECT_EQ(form_.Left(), 1500);
    EXPECT_EQ(form_.Top(), 750);
    EXPECT_EQ(form_.InnerSize(), (Size{3000, 1500}));
    EXPECT_EQ(form_.Bar().Text(), u"ready");
}

TEST_F(FormLife, PropertiesInsideTheLoadHandlerDoNotLoadAgain) {
    form_.onLoad = [&] { form_.SetCaption(u"From load"); };
    EXPECT_EQ(form_.Caption(), u"From load");
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(FormLife, LoadHandlerFails_FormIsNotLoaded) {
    form_.onLoad = [] { throw Error(kOverflow); };
    EXPECT_EQ(ErrorOf([&] { form_.Caption(); }), kOverflow);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(FormLife, UnloadHandlerFails_FormIsUnloadedAndErrorIsThrown) {
    form_.EnsureLoaded();
    form_.onUnload = [] { throw Error(kPathNotFound); };
    EXPECT_EQ(ErrorOf([&] { form_.Unload(); }), kPathNotFound);
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FormLife, UnloadInsideTheUnloadHandlerDoesNothing) {
    form_.EnsureLoaded();
    form_.onUnload = [&] { form_.Unload(); };
    form_.Unload();
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(FormLife, PropertiesInsideTheUnloadHandlerStillWork) {
    form_.EnsureLoaded();
    form_.onUnload = [&] { EXPECT_EQ(form_.Caption(), u"Design"); };
    form_.Unload();
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(FormLife, Collection_IsInLoadOrder_LastToUnloadIsTheNewestForm) {
    tests::HandledForm second(u"second");
    form_.EnsureLoaded();
    second.EnsureLoaded();
    EXPECT_EQ(&LoadedForms().At(1), &second);
    EXPECT_EQ(ErrorOf([] { LoadedForms().At(2); }), kSubscriptOutOfRange);
    EXPECT_EQ(LoadedForms().LastToUnload(), &second);
    second.onUnload = [&] { EXPECT_EQ(LoadedForms().LastToUnload(), &form_); };
    second.Unload();
    form_.onUnload = [] { EXPECT_EQ(LoadedForms().LastToUnload(), nullptr); };
    form_.Unload();
    EXPECT_THAT(second.log, ElementsAre("load", "query 1", "unload"));
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(FormLife, WindowCannotBeCreated_ErrorIsOutOfMemory) {
    runtime::headless::MemoryWindows refusing;
    refusing.refuseWindows = 1;
    const Ports ports = tests::WithPort(ports_, refusing);
    UsePorts(&ports);
    EXPECT_EQ(ErrorOf([&] { form_.Caption(); }), kOutOfMemory);
    EXPECT_EQ(LoadedForms().Count(), 0u);
    UsePorts(&ports_);
}

class FormProperties : public FormLife {};

TEST_F(FormProperties, ClientArea_HasTheDesignSize) {
    EXPECT_EQ(form_.InnerSize(), (Size{3000, 1500}));
    EXPECT_GT(form_.Width(), 3000);
    EXPECT_GT(form_.Height(), 1500);
}

TEST_F(FormProperties, Bounds_AreRoundedToWholePixels) {
    form_.Move(1501.5F, -7.25F);
    EXPECT_EQ(form_.Left(), OnPixels(1501.5F));
    EXPECT_EQ(form_.Top(), OnPixels(-7.25F));
    form_.SetWidth(8000);
    form_.SetHeight(3001);
    EXPECT_EQ(form_.Width(), OnPixels(8000));
    EXPECT_EQ(form_.Height(), OnPixels(3001));
}

TEST_F(FormProperties, DesignBounds_AreRoundedToWholePixels) {
    Form odd({.name = u"odd", .caption = u"", .left = 1508, .top = 742, .inner = {3001, 1507}});
    EXPECT_EQ(odd.Left(), OnPixels(1508));
    EXPECT_EQ(odd.Top(), OnPixels(742));
    EXPECT_EQ(odd.Width(), OnPixels(odd.Width()));
    EXPECT_EQ(odd.InnerSize(), (Size{OnPixels(3001), OnPixels(1507)}));
}

TEST_F(FormProperties, SameSizeInPixels_RaisesNoResize) {
    form_.SetWidth(8000);
    form_.SetWidth(8001);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
}

TEST_F(FormProperties, SizingRaisesResizeAndMovingDoesNot) {
    form_.Move(0, 0);
    EXPECT_THAT(form_.log, ElementsAre("load"));
    form_.SetWidth(6000);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
    form_.SetWidth(6000);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
}

TEST_F(FormProperties, StatusBarStaysDockedAtTheBottom) {
    form_.SetHeight(9000);
    const Size inner = form_.InnerSize();
    EXPECT_EQ(form_.Bar().Bounds(), (Rect{0, inner.height - 300, inner.width, 300}));
}

TEST_F(FormProperties, MinimisedOrMaximisedFormRefusesToBeMoved) {
    form_.SetState(WindowState::kMinimised);
    EXPECT_EQ(ErrorOf([&] { form_.Move(0, 0); }), kMoveWhileMinimisedOrMaximised);
    form_.SetState(WindowState::kMaximised);
    EXPECT_EQ(ErrorOf([&] { form_.SetWidth(1); }), kMoveWhileMinimisedOrMaximised);
    form_.SetState(WindowState::kNormal);
    EXPECT_EQ(ErrorOf([&] { form_.SetWidth(6000); }), 0);
}

TEST_F(FormProperties, HiddenMinimisedForm_KeepsTheNormalBounds) {
    form_.SetState(WindowState::kMinimised);
    form_.SetVisible(false);
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
    EXPECT_EQ(form_.Left(), 1500);
    EXPECT_EQ(form_.InnerSize(), (Size{3000, 1500}));
}

TEST_F(FormProperties, VisibleForm_MinimisesAndIsRestored) {
    form_.SetVisible(true);
    form_.SetState(WindowState::kMinimised);
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
    EXPECT_EQ(form_.Left(), 1500);
    form_.SetState(WindowState::kNormal);
    EXPECT_EQ(form_.State(), WindowState::kNormal);
}

TEST_F(FormProperties, FirstShowRaisesResizeThenActivate) {
    form_.SetVisible(true);
    DoEvents();
    EXPECT_THAT(form_.log, ElementsAre("load", "resize", "activate"));
    EXPECT_TRUE(form_.Visible());
}

TEST_F(FormProperties, ActivateHandlerMayHideTheForm) {
    form_.onActivate = [&] { form_.SetVisible(false); };
    form_.SetVisible(true);
    DoEvents();
    EXPECT_FALSE(form_.Visible());
}

TEST_F(FormProperties, ScaleMode_IsStoredAndChecked) {
    EXPECT_EQ(form_.ScaleMode(), 1);
    form_.SetScaleMode(3);
    EXPECT_EQ(form_.ScaleMode(), 3);
    EXPECT_EQ(ErrorOf([&] { form_.SetScaleMode(8); }), kInvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { form_.SetScaleMode(-1); }), kInvalidPropertyValue);
    EXPECT_EQ(form_.ScaleMode(), 3);
}

TEST_F(FormProperties, StateOutsideItsRangeIsRefused) {
    EXPECT_EQ(ErrorOf([&] { form_.SetState(static_cast<WindowState>(3)); }), kInvalidPropertyValue);
}

TEST_F(FormProperties, HandleAndContext_StayTheSame) {
    const NativeHandle handle = form_.Handle();
    EXPECT_NE(handle, 0);
    EXPECT_NE(form_.DeviceContext(), 0);
    EXPECT_EQ(form_.DeviceContext(), form_.DeviceContext());
    EXPECT_EQ(form_.Handle(), handle);
}

TEST_F(FormProperties, TextIsMeasuredInTheFontOfTheForm) {
    const Size one = form_.TextSize(u"R");
    EXPECT_GT(one.width, 0);
    EXPECT_GT(one.height, 0);
    EXPECT_EQ(form_.TextSize(u"").width, 0);
    EXPECT_EQ(form_.TextSize(u"").height, one.height);
    EXPECT_EQ(form_.TextSize(u"R\r\nRRR\r\nRR").height, one.height * 3);
    EXPECT_EQ(form_.TextSize(u"R\r\nRRR\r\nRR").width, form_.TextSize(u"RRR").width);
    // This text is wider than any window can be.
    EXPECT_EQ(form_.TextSize(String(10'000, u'R')).height, one.height);
    form_.SetFont({.size = 20});
    EXPECT_EQ(form_.Font().size, 20);
    EXPECT_GT(form_.TextSize(u"R").height, one.height);
    form_.Unload();
    EXPECT_EQ(form_.TextSize(u"R"), one);
}

TEST_F(FormProperties, MousePointer_IsCheckedAndStored) {
    SetMousePointer(kHourglassPointer);
    EXPECT_EQ(MousePointer(), kHourglassPointer);
    SetMousePointer(kDefaultPointer);
    EXPECT_EQ(MousePointer(), kDefaultPointer);
    EXPECT_EQ(ErrorOf([] { SetMousePointer(16); }), kInvalidPropertyValue);
    EXPECT_EQ(ErrorOf([] { SetMousePointer(-1); }), kInvalidPropertyValue);
}

class FormInMemory : public tests::HeadlessTest {
 protected:
    tests::HandledForm form_;
};

TEST_F(FormInMemory, UserCloses_FormUnloadsWithReasonUser) {
    form_.EnsureLoaded();
    memory_.windows.Post([&] { memory_.windows.Last().Events().Closing(UnloadReason::kUser); });
    EXPECT_TRUE(form_.IsLoaded());
    DoEvents();
    EXPECT_THAT(form_.log, ElementsAre("load", "query 0", "unload"));
    EXPECT_TRUE(memory_.windows.Windows().empty());
}

TEST_F(FormInMemory, UserResizes_FormHasTheNewSizeAndRaisesResize) {
    form_.EnsureLoaded();
    memory_.windows.Last().Events().BoundsChanged({15, 30, 4500, 6000}, WindowState::kNormal);
    EXPECT_EQ(form_.Left(), 15);
    EXPECT_EQ(form_.Height(), 6000);
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
}

TEST_F(FormInMemory, OtherProgramShows_FormIsVisibleAndRaisesResize) {
    form_.EnsureLoaded();
    auto& window = memory_.windows.Last();
    window.ShowExternally();
    EXPECT_TRUE(form_.Visible());
    EXPECT_THAT(form_.log, ElementsAre("load", "resize", "shown", "activate"));
    window.HideExternally();
    EXPECT_FALSE(form_.Visible());
    window.ShowExternally(WindowState::kMinimised);
    EXPECT_TRUE(form_.Visible());
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
}

TEST_F(FormInMemory, OtherProgramShowsAVisibleForm_RaisesNoEvent) {
    form_.SetVisible(true);
    memory_.windows.Last().ShowExternally();
    EXPECT_THAT(form_.log, ElementsAre("load", "resize", "activate"));
}

TEST_F(FormInMemory, OtherProgramShows_HandlerMayUnload) {
    form_.EnsureLoaded();
    form_.onResize = [&] { form_.Unload(); };
    memory_.windows.Last().ShowExternally();
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load", "resize", "query 1", "unload"));
}

TEST_F(FormInMemory, WindowWasShownWithoutAnEvent_SetVisibleFalseHidesTheWindow) {
    form_.EnsureLoaded();
    memory_.windows.Last().visible = true;
    form_.SetVisible(false);
    EXPECT_FALSE(memory_.windows.Last().visible);
}

TEST_F(FormInMemory, OtherProgramHidesAModalForm_ShowModalReturns) {
    memory_.windows.Post([&] { memory_.windows.Last().HideExternally(); });
    form_.ShowModal();
    EXPECT_FALSE(form_.Visible());
    EXPECT_TRUE(form_.IsLoaded());
}

TEST_F(FormInMemory, HandlerFails_DoEventsThrowsTheError) {
    form_.EnsureLoaded();
    form_.onResize = [] { throw Error(kOverflow); };
    memory_.windows.Post([&] { form_.SetWidth(9000); });
    EXPECT_EQ(ErrorOf([] { DoEvents(); }), kOverflow);
}

}  // namespace
}  // namespace runtime
