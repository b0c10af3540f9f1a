// An event with any number of listeners, which are called in the order in which they connected. During Raise, a
// listener may connect other listeners, disconnect any listener, raise the event again, or throw. An event is used on
// one thread.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "runtime/Error.h"

namespace runtime {

/// A listener sees the changes that earlier listeners made to an argument passed by reference.
template <typename... Args>
class Event {
    struct Slot {
        std::function<void(Args...)> listener;
        bool connected = true;
    };

 public:
    using Listener = std::function<void(Args...)>;

    /// Keeps a listener connected until it is destroyed. May outlive the event.
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

    /// Calls each listener that was connected before Raise and has not been disconnected since. The first exception of
    /// a listener is thrown after the last listener was called.
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
