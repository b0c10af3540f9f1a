// The main form comes and goes with its clients' instances: nothing of the window system may stay behind.
#include <gtest/gtest.h>

#include "host/frmBackProcessMain.h"
#include "tests/support/ComponentFixture.h"
#include "tests/windows/LiveObjects.h"

namespace host {
namespace {

using MainFormResources = tests::ComponentTest;

TEST_F(MainFormResources, StayFlatOverManyLoadsAndUnloads) {
    frmBackProcessMain& form = MainForm();
    tests::ExpectNothingStays(2000, [&form](int) {
        form.EditMsgLine(u"text");
        form.DeviceContext();
        form.Unload();
    });
}

}  // namespace
}  // namespace host
