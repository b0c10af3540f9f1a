// A form that logs its events as text. A test can set an action for each of its handlers.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "runtime/Form.h"

namespace tests {

class HandledForm : public runtime::Form {
 public:
    explicit HandledForm(runtime::String name = u"handled", runtime::Size inner = {3000, 1500})
        : Form({.name = std::move(name), .caption = u"Design", .left = 1500, .top = 750, .inner = inner}) {
        AddControl({.kind = runtime::ControlKind::kStatusBar,
                    .name = u"bar",
                    .bounds = {0, 1200, 3000, 300},
                    .align = runtime::Align::kBottom,
                    .text = u"ready"});
    }

    runtime::Control& Bar() { return *Controls().front(); }

    std::function<void()> onLoad, onQueryUnload, onUnload, onResize, onActivate, onShown, onKey;
    bool refusesQuery = false;
    bool refusesUnload = false;
    /// Entries: "load", "query 1" (reason), "unload", "resize", "activate", "shown" (by another program), "down 65 1"
    /// (key, modifiers), "press 97" (character), "up 65 0" (key, modifiers).
    std::vector<std::string> log;

 protected:
    void OnLoad() override { Record("load", onLoad); }
    void OnQueryUnload(bool& cancel, runtime::UnloadReason reason) override {
        cancel = refusesQuery;
        Record("query " + std::to_string(static_cast<int>(reason)), onQueryUnload);
    }
    void OnUnload(bool& cancel) override {
        cancel = refusesUnload;
        Record("unload", onUnload);
    }
    void OnResize() override { Record("resize", onResize); }
    void OnActivate() override { Record("activate", onActivate); }
    void OnShownByOthers() override { Record("shown", onShown); }
    void OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override {
        Record("down " + std::to_string(keyCode) + " " + std::to_string(shift), onKey);
    }
    void OnKeyUp(std::int16_t& keyCode, std::int16_t shift) override {
        Record("up " + std::to_string(keyCode) + " " + std::to_string(shift), onKey);
    }
    void OnKeyPress(char16_t& character) override {
        Record("press " + std::to_string(static_cast<int>(character)), onKey);
    }

 private:
    void Record(const std::string& what, const std::function<void()>& then) {
        log.push_back(what);
        if (then) then();
    }
};

}  // namespace tests
