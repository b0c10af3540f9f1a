#include "runtime/win32/Win32List.h"

#include "runtime/Error.h"

namespace runtime::win32 {
namespace {

/// The largest coordinate in a window. Items that are wider are cut.
constexpr int kWidestItem = 32767;

int WidthOfItem(StringView item, GdiMeasure& measure) {
    int width = 0;
    while (!item.empty() && width < kWidestItem) {
        const StringView run = item.substr(0, TextMeasure::kMaxRun);
        width += measure.Width(run);
        item.remove_prefix(run.size());
    }
    return width;
}

}  // namespace

Win32List::Win32List(Win32Window& parent, Win32Windows& system, ControlKind kind, int id, const WindowKind& windowKind,
                     const Messages& messages)
    : Win32Control(parent, system, kind, id, windowKind), messages_(messages) {}

void Win32List::SetFont(const Font& font) {
    Win32Control::SetFont(font);
    ResetExtent();
    const auto items = static_cast<int>(Send(messages_.count));
    for (int item = 0; item < items; ++item) Measure(TextOfItem(item));
}

void Win32List::Add(const String& item) {
    if (Send(messages_.add, 0, reinterpret_cast<LPARAM>(Wide(NulsAsBlanks(item)))) < 0) {
        throw ErrorAbout(kOutOfMemory, u"cannot add an item to a list");
    }
    Measure(item);
}

void Win32List::SetRedraw(bool redraws) {
    Send(WM_SETREDRAW, redraws ? TRUE : FALSE);
}

bool Win32List::RemoveItems() {
    Send(messages_.clear);
    return ResetExtent();
}

void Win32List::Choose(int index) {
    Send(messages_.setSelection, index);
}

int Win32List::ChosenItem() {
    return static_cast<int>(Send(messages_.selection));
}

String Win32List::TextOfItem(int item) const {
    const LRESULT length = Send(messages_.textLength, item);
    if (length < 0) return {};
    String text(static_cast<std::size_t>(length), u'\0');
    Send(messages_.text, item, reinterpret_cast<LPARAM>(Wide(text.data())));
    return text;
}

LRESULT Win32List::Send(UINT message, int number, LPARAM text) const {
    return SendMessageW(Window(), message, static_cast<WPARAM>(number), text);
}

void Win32List::Measure(StringView item) {
    if (!measure_) measure_.emplace(reinterpret_cast<HFONT>(Send(WM_GETFONT)));
    const int width = WidthOfItem(item, *measure_);
    if (width <= widest_) return;
    widest_ = width;
    // The list leaves some pixels before the text. Add the same number after the text, so that the last character does
    // not touch the edge.
    const int needed = width + 2 * GetSystemMetrics(SM_CXEDGE);
    RECT client{};
    GetClientRect(Window(), &client);
    if (needed > client.right - GetSystemMetrics(SM_CXVSCROLL)) SetExtent(needed);
}

bool Win32List::ResetExtent() {
    measure_.reset();
    widest_ = 0;
    if (extent_ == 0) return false;
    SetExtent(0);
    return true;
}

void Win32List::SetExtent(int extent) {
    extent_ = extent;
    Send(messages_.setExtent, extent);
}

}  // namespace runtime::win32
