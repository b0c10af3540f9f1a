// Loads and unloads the main form many times in a process. The form must not leak resources of the window system.
#include <gtest/gtest.h>

#include "host/frmBackProcessMain.h"
#include "tests/support/ComponentFixture.h"
#include "tests/windows/LiveObjects.h"

namespace host {
namespace {

using MainFormResources = tests::ComponentTest;

TEST_F(MainFormResources, ManyLoadsAndUnloads_NothingLeaks) {
    frmBackProcessMain& form = MainForm();
    tests::ExpectNothingStays(2000, [&form](int) {
        form.EditMsgLine(u"text");
        form.DeviceContext();
        form.Unload();
    });
}

}  // namespace
}  // namespace host
