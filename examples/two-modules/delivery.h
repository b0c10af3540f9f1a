// Delivers commands between the programs of the suite. Copy delivery.h and delivery.cpp into your module.
//
// Each module has a mailbox. A mailbox is a queue in a shared string of the kernel and a hidden window. The sender
// appends a command to the addressee's queue and posts the registered message "PELORIX" to the addressee's window. The
// sender never waits for the addressee. The module list "AllAps" contains a module while its mailbox is open.
//
// Guarantees: each stored command arrives at most once. The commands of one sender arrive in the order of the calls.
// Limits:
//   - A mailbox reaches only modules that use this file, in the same session, with the same user and rights. Windows
//   blocks
//     messages from a normal program to one that runs as an administrator.
//   - A stored command can still be lost, because a module that ends does not receive the rest of its queue.
//   - A queue holds a million bytes. A character outside ASCII takes six.
//   - A module receives commands from its message loop, one after the other. A running handler delays the next command.
//   - A killed module stays in "AllAps". This does no harm, because Send returns kGone for the module.
//   - A module's name has only letters, digits and underscores, because "AllAps" is a list separated by commas.
//
// Use a mailbox only on the thread that created the component's first instance, and only while that instance exists.
// The instance has loaded the kernel that the mailbox needs. Each mailbox must have a different name.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

enum class Delivery {
    kStored,  ///< the command is in the queue, and the module was notified
    kBusy,    ///< try again, because the module's queue is full or another module held the lock for two seconds
    kGone     ///< no module with this name is running; nothing is stored
};

class Mailbox {
 public:
    using Handler = std::function<void(const std::wstring& from, const std::wstring& command)>;

    /// Opens the mailbox of the module `name` with an empty queue, and adds the module to "AllAps". Call this before
    /// `Load`, because `Load` reads the list. `handler` receives each command and must not throw.
    Mailbox(std::wstring name, Handler handler);
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    /// Removes the module from "AllAps". Do not destroy a mailbox inside its handler.
    ~Mailbox();

    /// False if the name is not allowed, or if a module with this name is already running. A closed mailbox neither
    /// sends nor receives.
    bool IsOpen() const { return window_ != nullptr; }

    Delivery Send(const std::wstring& module, const std::wstring& command);
    /// Returns the other modules in "AllAps", without the component.
    std::vector<std::wstring> Others() const;

 private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void Receive();
    std::vector<std::pair<std::wstring, std::wstring>> TakeAll();

    const std::wstring name_;
    const Handler handler_;
    const UINT message_;
    HWND window_ = nullptr;
    bool isReceiving_ = false;
};
