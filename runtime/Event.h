// An event with any number of listeners, called in the order in which they connected. While it is being raised, a
// listener may connect others, disconnect itself or another, raise the event again, or fail.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "runtime/Error.h"

namespace runtime {

/// Args are passed on as they are declared; by-reference arguments show each listener what the one before it left.
template <typename... Args>
class Event {
    struct Slot {
        std::function<void(Args...)> listener;
        bool connected = true;
    };

 public:
    using Listener = std::function<void(Args...)>;

    /// Keeps a listener connected; disconnects when destroyed. May outlive the event.
    class Connection {
     public:
        Connection() = default;
        explicit Connection(std::shared_ptr<Slot> slot) : slot_(std::move(slot)) {}
        Connection(Connection&& other) noexcept = default;
        Connection& operator=(Connection&& other) noexcept {
            Disconnect();
            slot_ = std::move(other.slot_);
            return *this;
        }
        ~Connection() { Disconnect(); }

        void Disconnect() {
            if (slot_) slot_->connected = false;
            slot_.reset();
        }

     private:
        std::shared_ptr<Slot> slot_;
    };

    [[nodiscard]] Connection Connect(Listener listener) {
        std::erase_if(slots_, [](const auto& slot) { return !slot->connected; });
        slots_.push_back(std::make_shared<Slot>(Slot{std::move(listener)}));
        return Connection(slots_.back());
    }

    /// Calls every listener that was connected when the event was raised and still is when its turn comes. The first
    /// error of a listener is thrown after all others were called.
    void Raise(Args... args) {
        const auto slots = slots_;
        FirstError error;
        for (const auto& slot : slots) {
            if (slot->connected) error.Run([&] { slot->listener(args...); });
        }
        error.Rethrow();
    }

 private:
    std::vector<std::shared_ptr<Slot>> slots_;
};

}  // namespace runtime
