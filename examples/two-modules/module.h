// A module of the suite: a program with a window, a message loop, an instance of the component and a mailbox.
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

/// Prints events in its window and on standard output. Reads these lines from standard input:
///     MODULE COMMAND   raises COMMAND for MODULE
///     all COMMAND      raises COMMAND in the component's name, for all modules
///     language FOLDER  sets the suite's language folder and tells all modules to switch to it
///     quit             ends the program, as closing its window does
class Module {
 public:
    explicit Module(std::wstring name);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    virtual ~Module() = default;

    /// Runs until the window is closed. Returns the program's exit code.
    int Run();
    /// For the event sink: the component has raised `command` for `addressee`. The module delivers it.
    void NotifyServer(const std::wstring& addressee, const std::wstring& command);

 protected:
    /// Called after a command for this module has arrived and was passed to the component.
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
