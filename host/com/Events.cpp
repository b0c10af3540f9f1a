#include "host/com/Events.h"

#include <cstdio>
#include <optional>
#include <string>
#include <utility>

#include "host/Observer.h"
#include "host/com/Bstr.h"
#include "host/com/Guard.h"
#include "host/com/PeerGone.h"

namespace host::com {
namespace {

constexpr DISPID kNotifyServer = 1;

/// Receives the texts in which a sink describes its failure, and frees them. A sink may also set texts if it succeeds.
class SinkException {
 public:
    SinkException() = default;
    SinkException(const SinkException&) = delete;
    SinkException& operator=(const SinkException&) = delete;
    ~SinkException() {
        SysFreeString(info_.bstrSource);
        SysFreeString(info_.bstrDescription);
        SysFreeString(info_.bstrHelpFile);
    }

    EXCEPINFO* Address() { return &info_; }

    /// Calls the sink's deferred fill-in. Ignores its result and uses the fields as they are.
    void FillIn() {
        if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
    }

    String Description() const { return ToString(info_.bstrDescription); }

    HRESULT Code() const {
        if (info_.wCode != 0 && !IsRuntimeError(info_.scode)) return HresultOf(runtime::Error(info_.wCode, {}));
        return FAILED(info_.scode) ? info_.scode : DISP_E_EXCEPTION;
    }

 private:
    EXCEPINFO info_{};
};

bool IsFailure(HRESULT result) {
    // A sink without a handler for the event has not failed.
    return FAILED(result) && result != DISP_E_MEMBERNOTFOUND && result != E_NOTIMPL;
}

/// Returns an error with the sink's description. Without a description, the text names the connection and the result.
runtime::Error FailureOf(const Connection& connection, HRESULT code, String description) {
    const std::int32_t number = NumberOf(code);
    if (!description.empty()) return {number, std::move(description)};
    char answer[sizeof "0x80000000"];
    std::snprintf(answer, sizeof answer, "0x%08lX", static_cast<unsigned long>(code));
    return runtime::ErrorAbout(
        number, u"the event sink of connection " + runtime::FromAscii(std::to_string(connection.cookie)) +
                    u" returned " + runtime::FromAscii(answer) + u" from NotifyServer; check the client's handler");
}

std::optional<runtime::Error> Tell(Sinks& sinks, const Connection& connection, Bstr& Aname, Bstr& sCommand) {
    VARIANTARG arguments[2]{};  // the last parameter comes first
    arguments[0].vt = arguments[1].vt = VT_BSTR | VT_BYREF;
    arguments[0].pbstrVal = sCommand.Address();
    arguments[1].pbstrVal = Aname.Address();
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    SinkException exception;
    UINT badArgument = 0;
    Observer* const observer = CurrentObserver();
    Observer::TimePoint start;
    if (observer) start = observer->SinkCalled(connection.cookie, ViewOf(Aname.Get()), ViewOf(sCommand.Get()));
    const HRESULT result = connection.sink->Invoke(kNotifyServer, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                   &parameters, nullptr, exception.Address(), &badArgument);
    if (observer) observer->SinkAnswered(connection.cookie, static_cast<std::uint32_t>(result), start);
    if (IsPeerGone(result)) {
        // The client has gone, so this is no failure of its handler.
        sinks.Drop(connection.cookie);
        return {};
    }
    if (!IsFailure(result)) return {};
    if (result != DISP_E_EXCEPTION) return FailureOf(connection, result, {});
    exception.FillIn();
    return FailureOf(connection, exception.Code(), exception.Description());
}

}  // namespace

void RaiseNotifyServer(Sinks& sinks, String& Aname, String& sCommand) {
    Bstr name(Aname);
    Bstr command(sCommand);
    std::optional<runtime::Error> firstFailure;
    for (const Connection& connection : sinks.Connections()) {
        if (!sinks.IsConnected(connection.cookie)) continue;
        std::optional<runtime::Error> failure = Tell(sinks, connection, name, command);
        if (failure && !firstFailure) firstFailure = std::move(failure);
    }
    Aname = name.Text();
    sCommand = command.Text();
    if (firstFailure) throw std::move(*firstFailure);
}

}  // namespace host::com
