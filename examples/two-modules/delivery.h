// Delivers commands between the programs of the suite. Copy delivery.h and delivery.cpp into your module.
//
// Each module has a mailbox: a queue in a shared string of the kernel, and a hidden window. The sender appends a
// command to the addressee's queue and posts the registered message "PELORIX" to its window. The sender never waits for
// the addressee. The module list "AllAps" contains a module while its mailbox is open.
//
// Guarantees: each command arrives once. Commands of one sender arrive in the order in which they were sent.
// Limits:
//   - It reaches only modules that use this file, in the same session and with the same user and rights: Windows blocks
//     messages from a normal program to one that runs as an administrator.
//   - A stored command can still be lost: a module that ends does not receive the rest of its queue.
//   - A queue holds a million bytes. A character outside ASCII takes six.
//   - A module receives commands from its message loop, one after the other. A running handler delays the next command.
//   - A killed module stays in "AllAps". This does no harm, because Send reports it as gone.
//   - A module's name has only letters, digits and underscores, because "AllAps" is a list separated by commas.
//
// Use a mailbox only on the thread that created the component's first instance, and only while that instance exists,
// because the instance has loaded the kernel. Only one mailbox of a name can exist.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

enum class Delivery {
    kStored,  ///< the command is in the queue, and the module was notified
    kBusy,    ///< the module runs and its queue is full, or another module held the lock for two seconds: try again
    kGone     ///< no module of this name runs; nothing is stored
};

class Mailbox {
 public:
    using Handler = std::function<void(const std::wstring& from, const std::wstring& command)>;

    /// Opens the mailbox of the module `name` with an empty queue, and adds the module to "AllAps". Call this before
    /// `Load`, because `Load` reads the list. `handler` receives each command; it must not throw.
    Mailbox(std::wstring name, Handler handler);
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    /// Removes the module from "AllAps". Do not destroy a mailbox inside its handler.
    ~Mailbox();

    /// False if the name is not allowed, or if a module of this name is already running. A closed mailbox neither sends
    /// nor receives.
    bool IsOpen() const { return window_ != nullptr; }

    Delivery Send(const std::wstring& module, const std::wstring& command);
    /// The other modules in "AllAps", without the component.
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
