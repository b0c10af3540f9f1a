// An event with any number of listeners. The event calls the listeners in the order in which they connected. During
// Raise, a listener may connect other listeners, disconnect any listener, raise the event again, or throw. Use an event
// on one thread only.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "runtime/Error.h"

namespace runtime {

/// If a listener changes an argument that is passed by reference, later listeners receive the changed argument.
template <typename... Args>
class Event {
    struct Slot {
        std::function<void(Args...)> listener;
        bool connected = true;
    };

 public:
    using Listener = std::function<void(Args...)>;

    /// Keeps a listener connected until the connection is destroyed. A connection may outlive the event.
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

    /// Calls the listeners that are connected when Raise begins. Skips a listener that is disconnected before its call.
    /// If listeners throw, the remaining listeners are still called. Then the first exception is thrown.
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
