// Delivers commands between the programs of the suite. Copy delivery.h and delivery.cpp into your module.
//
// Each module has a mailbox. A mailbox is a queue in a shared string of the kernel and a hidden window. The sender
// appends a command to the addressee's queue and posts the registered message "PELORIX" to the addressee's window. The
// sender never waits for the addressee. The module list "AllAps" contains a module while its mailbox is open.
//
// Guarantees: each stored command arrives at most once. The commands of one sender arrive in the order of the calls.
// Limits:
//   - A mailbox reaches only modules that use this file, in the same session, with the same user and the same rights.
//     Windows blocks messages from a normal program to a program that runs as an administrator.
//   - A stored command can still be lost, because a module that ends does not receive the rest of its queue.
//   - A queue holds a million bytes. A backslash, a control character and each UTF-16 unit outside ASCII take six.
//   - A module receives commands from its message loop, one after the other. A running handler delays the next command.
//   - A killed module stays in "AllAps". Send returns kGone for this module.
//   - A module's name has only ASCII letters, digits and underscores, because "AllAps" is a list separated by commas.
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
    kStored,  ///< the command is in the queue; it arrives with this notification or with the next one
    kBusy,    ///< nothing is stored: the queue is full, the lock was not free for two seconds, or the kernel failed
    kGone     ///< nothing is stored: no module with this name is running, or this mailbox is not open
};

class Mailbox {
 public:
    using Handler = std::function<void(const std::wstring& from, const std::wstring& command)>;

    /// Opens the mailbox of the module `name` with an empty queue, and adds the module to "AllAps". Call this before
    /// `Load`, because `Load` reads the list. `handler` receives each command and must not throw. Then check IsOpen.
    Mailbox(std::wstring name, Handler handler);
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    /// Removes the module from "AllAps". Do not destroy a mailbox inside its handler.
    ~Mailbox();

    /// False if the name is not allowed, if a module with this name is already running, if the lock was not free for
    /// two seconds, or if the window could not be created. The mailbox then neither sends nor receives.
    bool IsOpen() const { return window_ != nullptr; }

    /// Stores `command` in the queue of `module` and notifies the module. Call it again later after kBusy.
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
