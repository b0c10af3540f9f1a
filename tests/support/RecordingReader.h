// A reader that records the requested texts and forwards every call to another reader. A test can set three actions.
// One action runs once, before the next text is read. The others run before each text or before each setting is read.
// An action may throw.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "kernel_api/Reader.h"

namespace tests {

class RecordingReader : public kernel_api::Reader {
 public:
    /// The default text and the identifier that the caller passed.
    using AskedText = std::pair<runtime::String, runtime::String>;

    explicit RecordingReader(kernel_api::Reader& reader) : reader_(reader) {}

    void NormaliseFolder(runtime::String& folder) override { reader_.NormaliseFolder(folder); }
    runtime::String GetSetting(runtime::StringView application, runtime::StringView key,
                               runtime::StringView defaultValue) override {
        if (onEachSetting) onEachSetting(key);
        return reader_.GetSetting(application, key, defaultValue);
    }
    runtime::String GetText(runtime::StringView defaultText, runtime::StringView textId) override {
        asked_.emplace_back(defaultText, textId);
        if (const auto then = std::exchange(onNextText, {})) then();
        if (onEachText) onEachText();
        return reader_.GetText(defaultText, textId);
    }
    runtime::String TextAt(kernel_api::TextPointer pointer) override { return reader_.TextAt(pointer); }

    /// The requested texts, in order.
    const std::vector<AskedText>& Asked() const { return asked_; }

    std::function<void()> onNextText;
    std::function<void()> onEachText;
    std::function<void(runtime::StringView key)> onEachSetting;

 private:
    kernel_api::Reader& reader_;
    std::vector<AskedText> asked_;
};

}  // namespace tests
