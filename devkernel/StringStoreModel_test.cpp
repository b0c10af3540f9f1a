// Models one reader and one writer. The tests try every interleaving of the writer's steps and the reader's steps that
// can change the result. The reader must return a complete value that the key had at some moment during the read.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "devkernel/StringStore.h"

namespace devkernel {
namespace {

constexpr std::uint32_t kModelCapacity = 80;

struct ModelState {
    std::array<std::uint32_t, kWordCount> words{};
    std::array<std::array<std::byte, kModelCapacity>, 2> spaces{};
};

/// Records the state after each of the writer's steps. A step writes one byte or stores one word.
class WritersMemory : public SharedMemory {
 public:
    void Lock() override {}
    void Unlock() noexcept override {}
    std::uint32_t Load(Word word) const override { return now_.words.at(static_cast<std::size_t>(word)); }
    void Store(Word word, std::uint32_t value) override {
        now_.words.at(static_cast<std::size_t>(word)) = value;
        states_.push_back(now_);
    }
    std::uint32_t Capacity() const override { return kModelCapacity; }
    bool View(std::uint32_t, std::uint32_t size) override { return size <= kModelCapacity; }
    void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const override {
        if (size > 0) std::memcpy(bytes, &now_.spaces.at(space).at(offset), size);
    }
    void Write(std::uint32_t space, std::uint32_t offset, const void* bytes, std::size_t size) override {
        for (std::size_t i = 0; i < size; ++i) {
            now_.spaces.at(space).at(offset + i) = static_cast<const std::byte*>(bytes)[i];
            states_.push_back(now_);
        }
    }
    void Release(std::uint32_t) noexcept override {}

    /// Discards the steps recorded so far. The tested part of the writer's work starts here.
    void Restart() { states_ = {now_}; }
    const std::vector<ModelState>& States() const { return states_; }

 private:
    ModelState now_;
    std::vector<ModelState> states_{now_};
};

/// Replays the writer's states to a reader. The current order determines how far the writer has advanced before each
/// reader step. The class skips writer states that give the next reader step the same result, because the reader cannot
/// distinguish them. NextOrder selects the next order and returns false after the last order.
class ReadersMemory : public SharedMemory {
 public:
    explicit ReadersMemory(const std::vector<ModelState>& states) : states_(states) {}

    void Lock() override { FAIL() << "a read took the lock"; }
    void Unlock() noexcept override {}
    std::uint32_t Load(Word word) const override {
        const auto look = [word](const ModelState& state) { return state.words.at(static_cast<std::size_t>(word)); };
        return Step(look);
    }
    void Store(Word, std::uint32_t) override { FAIL() << "a read stored a word"; }
    std::uint32_t Capacity() const override { return kModelCapacity; }
    bool View(std::uint32_t, std::uint32_t size) override { return size <= kModelCapacity; }
    void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const override {
        const auto look = [=](const ModelState& state) {
            return std::string(reinterpret_cast<const char*>(state.spaces.at(space).data()) + offset, size);
        };
        std::memcpy(bytes, Step(look).data(), size);
    }
    void Write(std::uint32_t, std::uint32_t, const void*, std::size_t) override { FAIL() << "a read wrote bytes"; }
    void Release(std::uint32_t) noexcept override {}

    /// The next call of the reader is the tested call. The writer has not advanced before that call.
    void StartCall() { inCall_ = true; }
    std::size_t WritersSteps() const { return writersSteps_; }
    bool NextOrder() {
        inCall_ = false;
        writersSteps_ = 0;
        readersSteps_ = 0;
        while (!order_.empty()) {
            Choice& last = order_.back();
            if (++last.changes <= last.possible) return true;
            order_.pop_back();
        }
        return false;
    }

 private:
    struct Choice {
        std::size_t changes = 0;   ///< number of relevant changes before the reader's step
        std::size_t possible = 0;  ///< maximum of `changes`
    };

    template <typename Look>
    std::invoke_result_t<Look, const ModelState&> Step(const Look& look) const {
        if (inCall_) AdvanceWriter(look);
        return look(states_.at(writersSteps_));
    }
    template <typename Look>
    void AdvanceWriter(const Look& look) const {
        if (readersSteps_ == order_.size()) order_.push_back({0, Changes(look).size()});
        const std::size_t changes = order_[readersSteps_++].changes;
        if (changes > 0) writersSteps_ = Changes(look).at(changes - 1);
    }
    /// Returns the indexes of the later states that change the result of `look`.
    template <typename Look>
    std::vector<std::size_t> Changes(const Look& look) const {
        std::vector<std::size_t> changes;
        for (std::size_t step = writersSteps_ + 1; step < states_.size(); ++step) {
            if (look(states_[step]) != look(states_[step - 1])) changes.push_back(step);
        }
        return changes;
    }

    const std::vector<ModelState>& states_;
    bool inCall_ = false;
    mutable std::vector<Choice> order_;  ///< one choice for each step of the reader
    mutable std::size_t readersSteps_ = 0;
    mutable std::size_t writersSteps_ = 0;
};

/// Returns the value that a reader finds after the writer's step `step`.
std::optional<std::string> ValueAfter(const std::vector<ModelState>& states, std::size_t step) {
    const std::vector<ModelState> still{states.at(step)};
    ReadersMemory memory(still);
    return StringStore(memory).Get("k");
}

bool IsOneOfThese(const std::optional<std::string>& value, const std::vector<std::optional<std::string>>& values,
                  std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (values.at(i) == value) return true;
    }
    return false;
}

/// Reads "k" once for each interleaving of the reader's steps with the writer's recorded steps. If `isWarm` is true,
/// the reader also reads "k" before the writer's steps. Returns the number of interleavings.
std::size_t ReadInEveryOrder(const WritersMemory& writer, bool isWarm) {
    const std::vector<ModelState>& states = writer.States();
    std::vector<std::optional<std::string>> values;
    for (std::size_t step = 0; step < states.size(); ++step) values.push_back(ValueAfter(states, step));

    ReadersMemory memory(states);
    std::size_t orders = 0;
    do {
        ++orders;
        StringStore reader(memory);
        if (isWarm) {
            EXPECT_EQ(reader.Get("k"), values.front());
        }
        memory.StartCall();
        const std::optional<std::string> value = reader.Get("k");
        if (!IsOneOfThese(value, values, memory.WritersSteps() + 1)) {
            ADD_FAILURE() << "the read returned " << (value ? "'" + *value + "'" : "no value")
                          << ", which the key did not have during the read";
            return orders;
        }
    } while (memory.NextOrder());
    return orders;
}

/// Stores the writer's first string. Then runs `write` and records its steps.
template <typename Write>
WritersMemory StepsOf(const Write& write) {
    WritersMemory memory;
    StringStore writer(memory);
    EXPECT_TRUE(writer.Set("k", "one"));
    memory.Restart();
    write(writer);
    return memory;
}

TEST(StringStoreModel, ReadDuringTheFirstWrite_FindsNothingOrTheValue) {
    WritersMemory memory;
    StringStore(memory).Set("k", "one");
    EXPECT_GT(ReadInEveryOrder(memory, false), 1u);
}

TEST(StringStoreModel, ReadDuringAnAppend_FindsTheOldOrTheNewValue) {
    const WritersMemory memory = StepsOf([](StringStore& writer) { EXPECT_TRUE(writer.Set("k", "two")); });
    EXPECT_GT(ReadInEveryOrder(memory, false), 1u);
    EXPECT_GT(ReadInEveryOrder(memory, true), 1u);
}

TEST(StringStoreModel, ReadDuringTwoRewrites_FindsAValueOfThatTime) {
    const WritersMemory memory = StepsOf([](StringStore& writer) {
        EXPECT_TRUE(writer.Set("k", std::string(60, '2')));  // does not fit into the active space
        EXPECT_TRUE(writer.Set("k", std::string(52, '3')));
    });
    EXPECT_EQ(memory.States().back().words.at(static_cast<std::size_t>(Word::kGeneration)), 2u);
    EXPECT_GT(ReadInEveryOrder(memory, false), 20u);
    EXPECT_GT(ReadInEveryOrder(memory, true), 20u);
}

TEST(StringStoreModel, ReadDuringRewritesOfAnotherKey_FindsTheUnchangedValue) {
    const WritersMemory memory = StepsOf([](StringStore& writer) {
        EXPECT_TRUE(writer.Set("x", std::string(40, '2')));
        EXPECT_TRUE(writer.Set("x", std::string(44, '3')));
        EXPECT_TRUE(writer.Set("x", std::string(48, '4')));
    });
    EXPECT_GE(memory.States().back().words.at(static_cast<std::size_t>(Word::kGeneration)), 2u);
    EXPECT_GT(ReadInEveryOrder(memory, true), 1u);
}

}  // namespace
}  // namespace devkernel
