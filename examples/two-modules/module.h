// Implements a module of the suite. A module is a program with a window, a message loop, an instance of the component
// and a mailbox.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "K4TBackProcess.h"
#include "delivery.h"

struct ReleaseInterface {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using Com = std::unique_ptr<Interface, ReleaseInterface>;

/// Prints arriving commands in the module's window and on standard output. Reads these lines from standard input:
///     MODULE COMMAND   raises COMMAND for MODULE
///     all COMMAND      raises COMMAND for all modules, with the component as addressee
///     language FOLDER  sets the suite's language folder and raises All,LZ for all modules
///     quit             closes the window and ends the program
class Module {
 public:
    explicit Module(std::wstring name);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    virtual ~Module() = default;

    /// Runs until the window is closed. Returns the program's exit code, which is 1 if the module cannot start.
    int Run();
    /// Handles the component's event. If the component reports SHUTDOWN, prints that the form was unloaded. Delivers
    /// any other command to `addressee`, or to all modules if `addressee` is the component. The event sink calls this
    /// function.
    void NotifyServer(const std::wstring& addressee, const std::wstring& command);

 protected:
    /// Handles a command that has arrived. Called after the component has received the command.
    virtual void OnCommand(const std::wstring& from, const std::wstring& command) = 0;
    void Deliver(const std::wstring& module, const std::wstring& command);
    void Say(const std::wstring& text);

 private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    bool MakeWindow();
    bool CreateComponent();
    bool ConnectEvents();
    bool LoadForm();
    void Arrived(const std::wstring& from, const std::wstring& command);
    void OnLine(const std::wstring& line);
    void ShowLanguage();

    const std::wstring name_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    Com<_clsQmxBackProcess> component_;
    Com<IK4TDiagnostics> diagnostics_;
    std::unique_ptr<Mailbox> mailbox_;
};
