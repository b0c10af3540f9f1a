// The window system of Windows. One object serves the process; it belongs to the thread that makes windows.
#pragma once

#include "runtime/WindowsPort.h"
#include "runtime/win32/Win32Fonts.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Windows : public WindowsPort {
 public:
    /// `instance` is the module that the windows belong to. The window classes are registered with the first window.
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
    std::unique_ptr<ModalLoop> BeginModal(NativeWindow& window) override;

    HINSTANCE Instance() const { return instance_; }
    const wchar_t* ClassName() const;
    Win32Fonts& Fonts() { return fonts_; }
    /// Gives a message of the queue to the form that it is for, if it is a key, and then to its window. Throws what a
    /// handler threw.
    void Dispatch(const MSG& message);
    /// A key that Dispatch has shown to its form already is on its way to a window.
    bool IsDispatchingKey() const { return dispatchingThread_ == GetCurrentThreadId(); }
    /// Shows the chosen pointer; false when it is the default one.
    bool ShowPointer() const;

 protected:
    void PressWithAlt(char16_t character) override;

 private:
    void RegisterWindowClasses();

    HINSTANCE instance_;
    bool classesRegistered_ = false;
    DWORD dispatchingThread_ = 0;  ///< may have ended
    Win32Fonts fonts_;
    std::int16_t pointer_ = 0;
    HCURSOR pointerBefore_ = nullptr;  ///< the shape that the client showed when a pointer of ours replaced it
};

}  // namespace runtime::win32
