// Tests how long the address of a text is valid while the same thread and other threads store more texts.
#include "devkernel/ThreadTexts.h"

#include <gtest/gtest.h>

namespace devkernel {
namespace {

TEST(ThreadTexts, OtherNamesAndThreads_AddressStaysValid) {
    ThreadTexts texts;
    const char* address = texts.Store(1, "key", "short");
    for (int i = 0; i < 100; ++i) {
        texts.Store(1, "other" + std::to_string(i), std::string(100, 'x'));
        texts.Store(2, "key", std::string(100, 'y'));
    }
    texts.Drop(2, "key");
    texts.DropAll(2);
    EXPECT_STREQ(address, "short");
}

TEST(ThreadTexts, SameThreadAndName_NewTextReplacesTheText) {
    ThreadTexts texts;
    texts.Store(1, "key", "old");
    EXPECT_STREQ(texts.Store(1, "key", "new and a good deal longer than before"),
                 "new and a good deal longer than before");
}

TEST(ThreadTexts, TextsDropped_NameCanBeUsedAgain) {
    ThreadTexts texts;
    texts.Drop(1, "never asked for");
    texts.DropAll(1);
    texts.Store(1, "key", "text");
    texts.DropAll(1);
    EXPECT_STREQ(texts.Store(1, "key", ""), "");
}

}  // namespace
}  // namespace devkernel
