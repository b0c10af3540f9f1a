// Implements the part of Control for input controls: accessible name, edited text, selection and list items.
#include <algorithm>
#include <cstddef>
#include <string>

#include "runtime/Control.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/ScopeGuard.h"

namespace runtime {

NativeEdit& Control::LoadedEdit() {
    form_.EnsureLoaded();
    if (!HasEdit(design_.kind)) throw ErrorAbout(kPropertyNotSupported, Name());
    return *native_->Edit();
}

NativeList& Control::LoadedList() {
    form_.EnsureLoaded();
    if (!HasList(design_.kind)) throw ErrorAbout(kPropertyNotSupported, Name());
    return *native_->List();
}

void Control::SetAccessibleName(StringView name) {
    form_.EnsureLoaded();
    if (!IsInput(design_.kind)) throw ErrorAbout(kPropertyNotSupported, Name());
    native_->SetAccessibleName(String(name));
}

void Control::FetchText() {
    if (!userHasText_) return;
    text_ = native_->Edit()->Text();
    userHasText_ = false;
}

void Control::OnEdited() {
    userHasText_ = true;
    listIndex_ = kNoItem;
}

void Control::OnChosen(int item) {
    listIndex_ = item >= 0 && static_cast<std::size_t>(item) < items_.size() ? item : kNoItem;
    userHasText_ = false;
    if (HasEdit(design_.kind)) text_ = SelectedItem();
}

bool Control::HasOpenList() const {
    return HasList(design_.kind) && native_->List()->IsOpen();
}

void Control::CloseList(bool choose) {
    native_->List()->Close(choose);
}

std::size_t Control::SelStart() {
    return LoadedEdit().Selection().start;
}

void Control::SetSelStart(std::ptrdiff_t start) {
    NativeEdit& edit = LoadedEdit();
    if (start < 0) throw ErrorAbout(kInvalidPropertyValue, u"SelStart of " + Name() + u" must not be negative");
    FetchText();
    edit.SetSelection({std::min(static_cast<std::size_t>(start), text_.size()), 0});
}

std::size_t Control::SelLength() {
    return LoadedEdit().Selection().length;
}

void Control::SetSelLength(std::ptrdiff_t length) {
    NativeEdit& edit = LoadedEdit();
    if (length < 0) throw ErrorAbout(kInvalidPropertyValue, u"SelLength of " + Name() + u" must not be negative");
    FetchText();
    const std::size_t start = std::min(edit.Selection().start, text_.size());
    edit.SetSelection({start, std::min(static_cast<std::size_t>(length), text_.size() - start)});
}

void Control::Write(StringView text) {
    LoadedEdit().Write(String(text));
}

void Control::AddItem(StringView item) {
    NativeList& list = LoadedList();
    items_.emplace_back(item);
    try {
        list.Add(items_.back());
    } catch (...) {
        items_.pop_back();
        throw;
    }
}

void Control::AddItems(std::span<const String> items) {
    NativeList& list = LoadedList();
    list.SetRedraw(false);
    const ScopeGuard redraw([&list] { list.SetRedraw(true); });
    for (const String& item : items) AddItem(item);
}

void Control::ClearItems() {
    NativeList& list = LoadedList();
    items_.clear();
    OnChosen(kNoItem);
    list.Clear();
}

int Control::ItemCount() {
    LoadedList();
    return static_cast<int>(items_.size());
}

String Control::Item(int index) {
    LoadedList();
    if (index < 0 || index >= ItemCount())
        throw ErrorAbout(kInvalidPropertyIndex, u"item of " + IndexRangeMessage(0, index));
    return items_[static_cast<std::size_t>(index)];
}

int Control::ListIndex() {
    LoadedList();
    return listIndex_;
}

void Control::SetListIndex(int index) {
    LoadedList();
    if (index < kNoItem || index >= ItemCount()) {
        throw ErrorAbout(kInvalidPropertyValue, u"ListIndex of " + IndexRangeMessage(kNoItem, index));
    }
    Select(index);
}

void Control::Select(int index) {
    OnChosen(index);
    native_->List()->Choose(index);
}

String Control::IndexRangeMessage(int least, int index) const {
    const auto decimal = [](std::ptrdiff_t number) { return FromAscii(std::to_string(number)); };
    return Name() + u" must be " + decimal(least) + u" to " + decimal(std::ssize(items_) - 1) + u", not " +
           decimal(index);
}

String Control::SelectedItem() const {
    return listIndex_ == kNoItem ? String() : items_[static_cast<std::size_t>(listIndex_)];
}

}  // namespace runtime
