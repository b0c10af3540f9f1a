// Runs the tests of SettingsPort with MemorySettings. Also tests the refusal to save and the log of saved settings.
#include "runtime/headless/MemorySettings.h"

#include <gmock/gmock.h>

#include "runtime/Error.h"
#include "runtime/SettingsPort_test.h"

namespace runtime::headless {
namespace {

std::shared_ptr<SettingsPort> MakeMemorySettings() {
    return std::make_shared<MemorySettings>();
}
INSTANTIATE_TEST_SUITE_P(Memory, SettingsPortTest, testing::Values(&MakeMemorySettings));

TEST(MemorySettings, Saved_HasTheSettingsInOrder) {
    MemorySettings settings;
    settings.Save(u"Pelorix", u"S", u"b", u"1");
    settings.Save(u"Pelorix", u"S", u"a", u"2");
    settings.Save(u"PELORIX", u"S", u"b", u"3");
    using Setting = MemorySettings::Setting;
    EXPECT_THAT(settings.Saved(),
                testing::ElementsAre(Setting{u"Pelorix", u"S", u"b", u"1"}, Setting{u"Pelorix", u"S", u"a", u"2"},
                                     Setting{u"PELORIX", u"S", u"b", u"3"}));
}

TEST(MemorySettings, SaveIsRefused_NothingIsStored) {
    MemorySettings settings;
    settings.Refuse();
    EXPECT_THROW(settings.Save(u"Pelorix", u"S", u"a", u"1"), Error);
    EXPECT_THAT(settings.Saved(), testing::IsEmpty());
    EXPECT_EQ(settings.Get(u"Pelorix", u"S", u"a"), std::nullopt);
}

}  // namespace
}  // namespace runtime::headless
