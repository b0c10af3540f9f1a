// Delivers commands between the programs of the suite. Copy delivery.h and delivery.cpp into your module.
//
// Each module has a mailbox: a queue in a shared string of the kernel, and a hidden window that gets the registered
// message "PELORIX" when there is something in the queue. The sender appends to the queue of the addressee and posts
// the message; it never waits for the addressee. While a mailbox lives, its module is in the module list "AllAps".
//
// What it promises: commands arrive once, and those of one sender in the order in which they were sent.
// Its limits:
//   - It reaches modules that use this helper, of the same user and session, and with the same rights: Windows lets no
//     program post to one that runs as an administrator.
//   - Stored means stored. A module that ends or is killed loses what it has not taken yet.
//   - A queue has room for a million bytes. A character outside ASCII takes six.
//   - A module takes commands when it serves its messages, and one after the other: none while a handler runs.
//   - A killed module stays in "AllAps". Send reports it as gone, so this does no harm.
//   - Names of modules have letters, digits and underscores only, so that "AllAps" is always well-formed.
//
// Use a mailbox on one thread, the one that created the component's first instance, and while that instance lives: it
// has loaded the kernel. No two mailboxes of one name can exist.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

enum class Delivery {
    kStored,  ///< the command is in the queue, and the module is awake
    kBusy,    ///< the module runs and its queue is full, or another module held the lock for two seconds: try again
    kGone     ///< no module of this name runs; nothing is stored
};

class Mailbox {
 public:
    using Handler = std::function<void(const std::wstring& from, const std::wstring& command)>;

    /// Opens the mailbox of the module `name` with an empty queue, and adds the module to "AllAps". Do this before
    /// `Load`, which reads the list. `handler` receives each command; it must not throw.
    Mailbox(std::wstring name, Handler handler);
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    /// Takes the module out of "AllAps". Not from inside the handler.
    ~Mailbox();

    /// False if the name is not allowed, or a module of this name runs already. Then nothing is sent or received.
    bool IsOpen() const { return window_ != nullptr; }

    Delivery Send(const std::wstring& module, const std::wstring& command);
    /// The other modules of "AllAps"; the component's own name is left out.
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
