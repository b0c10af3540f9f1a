// Tests the order in which events call listeners. Also tests listeners that connect, disconnect, throw or raise the
// event again during a call.
#include "runtime/Event.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace runtime {
namespace {

using ::testing::ElementsAre;
using StringEvent = Event<std::string&>;

class EventTest : public ::testing::Test {
 protected:
    StringEvent::Connection Listen(const std::string& name) {
        return event_.Connect([this, name](std::string&) { notified_.push_back(name); });
    }
    void Raise(std::string text = "x") { event_.Raise(text); }

    StringEvent event_;
    std::vector<std::string> notified_;
};

TEST_F(EventTest, CallsListenersInTheOrderOfConnecting) {
    const auto a = Listen("a");
    const auto b = Listen("b");
    Raise();
    EXPECT_THAT(notified_, ElementsAre("a", "b"));
}

TEST_F(EventTest, WithoutListenersDoesNothing) {
    Raise();
    EXPECT_TRUE(notified_.empty());
}

TEST_F(EventTest, ListenerChangesArgument_NextListenerAndCallerGetTheChange) {
    const auto a = event_.Connect([](std::string& text) { text += "a"; });
    const auto b = event_.Connect([](std::string& text) { text += "b"; });
    std::string text = "x";
    event_.Raise(text);
    EXPECT_EQ(text, "xab");
}

TEST_F(EventTest, DisconnectedListener_IsNotCalled) {
    auto a = Listen("a");
    const auto b = Listen("b");
    a.Disconnect();
    Raise();
    EXPECT_THAT(notified_, ElementsAre("b"));
}

TEST_F(EventTest, ListenerMayDisconnectItself) {
    StringEvent::Connection a;
    a = event_.Connect([&](std::string&) {
        notified_.push_back("a");
        a.Disconnect();
    });
    const auto b = Listen("b");
    Raise();
    Raise();
    EXPECT_THAT(notified_, ElementsAre("a", "b", "b"));
}

TEST_F(EventTest, ListenerDisconnectedDuringRaise_IsNotCalled) {
    StringEvent::Connection b;
    const auto a = event_.Connect([&](std::string&) { b.Disconnect(); });
    b = Listen("b");
    const auto c = Listen("c");
    Raise();
    EXPECT_THAT(notified_, ElementsAre("c"));
}

TEST_F(EventTest, ListenerConnectedDuringRaise_IsCalledByTheNextRaise) {
    StringEvent::Connection late;
    const auto a = event_.Connect([&](std::string&) {
        notified_.push_back("a");
        if (notified_.size() == 1) late = Listen("late");
    });
    Raise();
    EXPECT_THAT(notified_, ElementsAre("a"));
    Raise();
    EXPECT_THAT(notified_, ElementsAre("a", "a", "late"));
}

TEST_F(EventTest, ListenerMayRaiseAgain) {
    bool nested = false;
    const auto a = event_.Connect([&](std::string&) {
        notified_.push_back("a");
        if (!std::exchange(nested, true)) Raise();
    });
    const auto b = Listen("b");
    Raise();
    EXPECT_THAT(notified_, ElementsAre("a", "a", "b", "b"));
}

TEST_F(EventTest, ListenersFail_FirstErrorIsThrownAfterTheLastCall) {
    const auto a = event_.Connect([](std::string&) { throw std::runtime_error("first"); });
    const auto b = event_.Connect([](std::string&) { throw std::runtime_error("second"); });
    const auto c = Listen("c");
    try {
        Raise();
        FAIL() << "no error was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "first");
    }
    EXPECT_THAT(notified_, ElementsAre("c"));
}

TEST_F(EventTest, ConnectionMayOutliveTheEvent) {
    StringEvent::Connection connection;
    {
        StringEvent event;
        connection = event.Connect([](std::string&) {});
    }
    connection.Disconnect();
}

}  // namespace
}  // namespace runtime
