// Tests the texts of errors, and FirstError.
#include "runtime/Error.h"

#include <gtest/gtest.h>

#include "tests/support/ErrorOf.h"

namespace runtime {
namespace {

TEST(Error, What_IsTheDescriptionInUtf8) {
    EXPECT_STREQ(Error(kOverflow).what(), "Overflow");
    EXPECT_STREQ(Error(kPathNotFound, u"\u00C4").what(), "\xC3\x84");
}

TEST(FirstErrorTest, AllStepsSucceed_NothingIsThrown) {
    FirstError error;
    error.Run([] {});

    EXPECT_FALSE(error.IsKept());
    EXPECT_NO_THROW(error.Rethrow());
}

TEST(FirstErrorTest, StepFails_OtherStepsRunAndFirstErrorIsThrown) {
    FirstError error;
    int ran = 0;
    error.Run([] { throw Error(kOverflow); });
    error.Run([&ran] { ++ran; });
    error.Run([] { throw Error(kTypeMismatch); });

    EXPECT_EQ(ran, 1);
    EXPECT_TRUE(error.IsKept());
    EXPECT_EQ(tests::ErrorOf([&error] { error.Rethrow(); }), kOverflow);
}

TEST(FirstErrorTest, ExceptionThatIsNoError_IsThrown) {
    FirstError error;
    error.Run([] { throw 7; });

    EXPECT_THROW(error.Rethrow(), int);
}

TEST(Error, ErrorAbout_DescriptionNamesTheObject) {
    const Error error = ErrorAbout(kFileNotFound, u"QmxKrn2K.dll");
    EXPECT_EQ(error.Number(), 53);
    EXPECT_STREQ(error.what(), "File not found: QmxKrn2K.dll");
}

}  // namespace
}  // namespace runtime
