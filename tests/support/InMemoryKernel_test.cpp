// Tests the kernel in memory. The kernel stores strings as a real kernel does, logs its calls, and fails on request.
#include "tests/support/InMemoryKernel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ErrorOf.h"

namespace tests {
namespace {

using kernel_api::TextPointer;
using runtime::String;
using runtime::StringView;
using testing::ElementsAre;
using testing::Optional;

const char* At(TextPointer pointer) {
    return reinterpret_cast<const char*>(pointer);
}

TEST(InMemoryKernel, SetString_IsReturned) {
    InMemoryKernel kernel;
    String value = u"INIT";
    kernel.E_SetString(u"INITBP", value);
    EXPECT_EQ(value, u"INIT");
    EXPECT_STREQ(At(kernel.E_GetString(u"INITBP")), "INIT");
    EXPECT_THAT(kernel.Kept(u"INITBP"), Optional(String(u"INIT")));
}

TEST(InMemoryKernel, EmptyString_DiffersFromMissingString) {
    InMemoryKernel kernel;
    kernel.Put(u"K4TBACKPROCESS", u"");
    EXPECT_STREQ(At(kernel.E_GetString(u"K4TBACKPROCESS")), "");
    EXPECT_EQ(kernel.E_GetString(u"AllAps"), 0);
    EXPECT_EQ(kernel.Kept(u"AllAps"), std::nullopt);
}

TEST(InMemoryKernel, EveryCall_IsLoggedInOrder) {
    InMemoryKernel kernel;
    String value = u"caf\u00E9, 1";
    kernel.E_SetString(u"JobDir", value);
    kernel.E_GetString(u"AllAps");
    kernel.O_GetName(kernel.DB_DataBase());
    EXPECT_THAT(kernel.Log(), ElementsAre("E_SetString(JobDir, caf\xC3\xA9, 1)", "E_GetString(AllAps)", "DB_DataBase()",
                                          "O_GetName(1)"));
    kernel.ClearLog();
    EXPECT_THAT(kernel.Log(), ElementsAre());
}

TEST(InMemoryKernel, Text_IsPassedInLatin1UpToTheFirstNul) {
    InMemoryKernel kernel;
    String value(u"\u00FF\u0100\0rest", 7);
    kernel.E_SetString(String(u"key\0more", 8), value);
    EXPECT_EQ(value, u"\u00FF?");
    EXPECT_STREQ(At(kernel.E_GetString(u"key")), "\xFF?");
}

TEST(InMemoryKernel, O_GetName_ReturnsOnlyTheOpenDesignsName) {
    InMemoryKernel kernel;
    EXPECT_EQ(kernel.O_GetName(1), 0);
    kernel.Put(u"DESIGN_NAME", u"amplifier");
    EXPECT_STREQ(At(kernel.O_GetName(1)), "amplifier");
    EXPECT_EQ(kernel.O_GetName(2), 0);
    kernel.UseDesignHandle(2);
    EXPECT_EQ(kernel.DB_DataBase(), 2);
    EXPECT_STREQ(At(kernel.O_GetName(2)), "amplifier");
}

TEST(InMemoryKernel, Address_StaysValidUntilTheSameKeyIsReadAgain) {
    InMemoryKernel kernel;
    kernel.Put(u"DESIGN_NAME", u"old");
    const char* text = At(kernel.E_GetString(u"DESIGN_NAME"));
    kernel.Put(u"DESIGN_NAME", u"new");
    kernel.E_GetString(u"other");
    EXPECT_STREQ(At(kernel.O_GetName(1)), "new");
    EXPECT_STREQ(text, "old");
    EXPECT_STREQ(At(kernel.E_GetString(u"DESIGN_NAME")), "new");
}

TEST(InMemoryKernel, FailAt_CallWithThatNumberFailsOnce) {
    InMemoryKernel kernel;
    kernel.DB_DataBase();
    kernel.FailAt(2, runtime::Error(runtime::kFileNotFound));
    kernel.DB_DataBase();
    EXPECT_EQ(ErrorOf([&] { kernel.DB_DataBase(); }), 53);
    EXPECT_EQ(kernel.DB_DataBase(), 1);
    EXPECT_EQ(kernel.Log().size(), 4u);
}

TEST(InMemoryKernel, FailOn_MakesCallsFailAndStoresNothing) {
    InMemoryKernel kernel;
    kernel.FailOn("E_SetString(JobDir,", runtime::Error(runtime::kFileNotFound));
    kernel.FailOn("O_GetName", runtime::Error(runtime::kDllEntryPointNotFound));
    String value = u"\u0100";
    EXPECT_EQ(ErrorOf([&] { kernel.E_SetString(u"JobDir", value); }), 53);
    EXPECT_EQ(value, u"\u0100");
    EXPECT_EQ(kernel.Kept(u"JobDir"), std::nullopt);
    EXPECT_EQ(ErrorOf([&] { kernel.O_GetName(1); }), 453);
    EXPECT_EQ(ErrorOf([&] { kernel.E_SetString(u"JobDir2", value); }), 0);
    kernel.StopFailing();
    EXPECT_EQ(ErrorOf([&] { kernel.E_SetString(u"JobDir", value); }), 0);
}

TEST(InMemoryKernel, RewriteValues_ChangesTheStoredValue) {
    InMemoryKernel kernel;
    kernel.RewriteValues([](const std::string& key, std::string& bytes) { bytes = key == "LibDir" ? "D:\\" : bytes; });
    String library = u"C:\\LIB";
    String job = u"C:\\JOB";
    kernel.E_SetString(u"LibDir", library);
    kernel.E_SetString(u"JobDir", job);
    EXPECT_EQ(library, u"D:\\");
    EXPECT_EQ(job, u"C:\\JOB");
    EXPECT_THAT(kernel.Kept(u"LibDir"), Optional(String(u"D:\\")));
    EXPECT_THAT(kernel.Log(), ElementsAre("E_SetString(LibDir, C:\\LIB)", "E_SetString(JobDir, C:\\JOB)"));
}

}  // namespace
}  // namespace tests
