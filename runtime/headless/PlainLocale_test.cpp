#include "runtime/headless/PlainLocale.h"

#include "runtime/LocalePort_test.h"

namespace runtime::headless {
namespace {

std::unique_ptr<LocalePort> MakePlainLocale() {
    return std::make_unique<PlainLocale>();
}
INSTANTIATE_TEST_SUITE_P(Plain, LocalePortTest, testing::Values(&MakePlainLocale));

}  // namespace
}  // namespace runtime::headless
