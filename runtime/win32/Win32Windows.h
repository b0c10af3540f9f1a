// Implements the window system with the functions of Windows. The process has one object. Use it on the thread that
// creates the windows.
#pragma once

#include "runtime/WindowsPort.h"
#include "runtime/win32/SystemResolution.h"
#include "runtime/win32/Win32Fonts.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Windows : public WindowsPort {
 public:
    /// `instance` is the DLL or program that owns the windows. The window classes are registered when the first window
    /// is created.
    explicit Win32Windows(HINSTANCE instance) : instance_(instance) {}
    Win32Windows(const Win32Windows&) = delete;
    Win32Windows& operator=(const Win32Windows&) = delete;
    /// Unregisters the window classes.
    ~Win32Windows() override;

    std::unique_ptr<NativeWindow> MakeWindow(const WindowDesign& design, WindowEvents& events) override;
    Size OuterSize(Size inner, BorderStyle border) override;
    Size ScreenSize() override;
    std::int16_t MousePointer() override { return pointer_; }
    void SetMousePointer(std::int16_t shape) override;
    Size TextSize(StringView text, const Font& font, Twips wrapWidth) override;
    std::uint32_t RegisterMessage(StringView name) override;
    void DoEvents() override;
    std::unique_ptr<ResolutionScope> UseSystemResolution() override { return std::make_unique<SystemResolution>(); }
    void PlayQuestionSound() override { MessageBeep(MB_ICONQUESTION); }
    bool CopyToClipboard(StringView text) override;
    std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) override;

    HINSTANCE Instance() const { return instance_; }
    const wchar_t* ClassName() const;
    Win32Fonts& Fonts() { return fonts_; }
    /// Sends a message from the queue to its window. The form gets a key first. If the form consumes the key, the
    /// window does not get it. Throws the exception of a handler.
    void Dispatch(const MSG& message);
    /// True while Dispatch sends a key to its window. The form has already received this key.
    bool IsDispatchingKey() const { return dispatchingThread_ == GetCurrentThreadId(); }
    /// Shows the chosen pointer. If it is the default pointer, does nothing and returns false.
    bool ShowPointer() const;

 protected:
    void PressWithAlt(char16_t character) override;

 private:
    void RegisterWindowClasses();

    HINSTANCE instance_;
    bool classesRegistered_ = false;
    DWORD dispatchingThread_ = 0;  ///< the thread that is dispatching a key, or 0; it may have ended
    Win32Fonts fonts_;
    std::int16_t pointer_ = 0;
    HCURSOR pointerBefore_ = nullptr;  ///< the client's pointer, which the component's pointer replaced
};

}  // namespace runtime::win32
