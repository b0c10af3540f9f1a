#include "tests/com/ComponentDouble.h"

#include <new>
#include <stdexcept>

#include "runtime/Error.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tests::com {
namespace {

using host::NotifyServerEvent;
using runtime::String;
using runtime::StringView;

void Record(std::string what) {
    TheDouble().log.push_back(std::move(what));
    TheDouble().threads.push_back(GetCurrentThreadId());
}

struct Parts {
    String left;
    String right;
};

Parts SplitAtBar(const String& text) {
    const auto bar = text.find(u'|');
    if (bar == String::npos) return {text, {}};
    return {text.substr(0, bar), text.substr(bar + 1)};
}

class ServiceDouble final : public host::ServiceObject {
 public:
    explicit ServiceDouble(NotifyServerEvent notifyServer) : notifyServer_(std::move(notifyServer)) { Record("made"); }
    ~ServiceDouble() override { Record("destroyed"); }

    void Terminate() override {
        Record("terminate");
        if (TheDouble().endsQuietly) return;
        String name = u"K4TBACKPROCESS";
        String command = u"SHUTDOWN";
        notifyServer_(name, command);
        if (TheDouble().terminateError) throw runtime::Error(*TheDouble().terminateError);
    }

    bool Load(std::int16_t iMode) override {
        Record("load " + std::to_string(iMode));
        return true;
    }

    void NotifyMe(StringView Aname, StringView sCommand) override {
        const String command(sCommand);
        TheDouble().lastCommand = command;
        Record("notify [" + runtime::ToUtf8(Aname) + "] [" + runtime::ToUtf8(command) + "]");
        if (command.starts_with(u"RAISE ")) Raise(SplitAtBar(command.substr(6)));
        if (command.starts_with(u"FAIL ")) Fail(SplitAtBar(command.substr(5)));
        if (command == u"MEMORY") throw std::bad_alloc();
        if (command == u"ODD") throw 42;
        if (command == u"STRANGE") throw std::out_of_range("no such place");
    }

    String SeverPath() override {
        Record("get");
        return u"path";
    }
    void SetSeverPath(StringView value) override { Record("put [" + runtime::ToUtf8(value) + "]"); }

    void AP_SendCmd(String module, String command) override {
        Record("send");
        notifyServer_(module, command);
    }
    void AP_SendCmdAll(String command) override { AP_SendCmd(u"all", std::move(command)); }
    void AP_Shell(String module, std::int16_t mode, StringView commandLine) override {
        AP_SendCmd(std::move(module), runtime::FromAscii(std::to_string(mode)) + u" " + String(commandLine));
    }
    String CurrentDesignName() override { return u"design"; }
    String LanguagePath() override { return u"folder"; }
    std::optional<String> Caption() override { return TheDouble().caption; }

 private:
    void Raise(Parts parts) const {
        notifyServer_(parts.left, parts.right);
        TheDouble().raised = runtime::ToUtf8(parts.left) + "|" + runtime::ToUtf8(parts.right);
    }

    [[noreturn]] static void Fail(const Parts& parts) {
        throw runtime::Error(std::stoi(runtime::ToUtf8(parts.left)), parts.right);
    }

    NotifyServerEvent notifyServer_;
};

}  // namespace

ComponentDouble& TheDouble() {
    static ComponentDouble theDouble;
    return theDouble;
}

}  // namespace tests::com

namespace host::com {

using tests::com::TheDouble;

std::unique_ptr<ServiceObject> MakeServiceObject(NotifyServerEvent notifyServer) {
    if (TheDouble().makeError) throw runtime::Error(*TheDouble().makeError);
    return std::make_unique<tests::com::ServiceDouble>(std::move(notifyServer));
}

std::size_t LiveWindows() noexcept {
    return TheDouble().liveWindows;
}

void GiveUpForms() noexcept {
    ++TheDouble().lostHomes;
}

}  // namespace host::com
