// A command that fails while memory is short still ends in the shutdown. This program's allocations fail on demand.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "kernel_api/Splitter.h"
#include "routing/CommandInterpreter.h"
#include "runtime/Error.h"
#include "tests/support/HandledForm.h"
#include "tests/support/RuntimeFixture.h"

namespace {
bool isShort = false;
}

// Not inlined: the compiler would see one half of a pair without the other and warn.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const room = isShort ? nullptr : std::malloc(size);
    if (!room) throw std::bad_alloc();
    return room;
}
[[gnu::noinline]] void operator delete(void* room) noexcept {
    std::free(room);
}
[[gnu::noinline]] void operator delete(void* room, std::size_t) noexcept {
    std::free(room);
}

namespace routing {
namespace {

/// Its parsers fail, and from then on there is no memory.
class ShortSplitter : public kernel_api::Splitter {
 public:
    std::unique_ptr<kernel_api::FieldParser> MakeFieldParser() override { return std::make_unique<Parser>(); }
    std::int32_t CountPieces(runtime::StringView, runtime::StringView) override { return 1; }

 private:
    class Parser : public kernel_api::FieldParser {
     public:
        void SetText(runtime::StringView) override {}
        runtime::StringView Field(std::int32_t) override {
            const struct Shortage {
                ~Shortage() { isShort = true; }
            } beginsWithTheError;
            throw runtime::Error(runtime::kFileNotFound, runtime::String(100, u'x'));
        }
    };
};

class ShortMemory : public tests::HeadlessTest {
 protected:
    ShortMemory() { kernel_api::UseSplitter(&splitter_); }
    ~ShortMemory() override {
        isShort = false;
        ResetCommandInterpreter();
        kernel_api::UseSplitter(nullptr);
    }

    ShortSplitter splitter_;
    tests::HandledForm form_;
};

TEST_F(ShortMemory, DoesNotKeepAFailedCommandFromUnloadingAllForms) {
    int unloads = 0;
    bool isReported = false;
    try {
        ExecuteCommand(u"All,SAVE", {form_, false, [&] { ++unloads; }});
    } catch (const std::bad_alloc&) {
        isReported = true;
    }
    isShort = false;
    EXPECT_TRUE(isReported);
    EXPECT_EQ(unloads, 1);
}

}  // namespace
}  // namespace routing
