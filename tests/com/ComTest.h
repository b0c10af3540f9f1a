// Declares what the tests of the COM interface share: a thread with COM, instances from the class factory, late-bound
// calls, and readable results.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "host/com/ComPtr.h"
#include "host/com/Variant.h"
#include "tests/com/ComponentDouble.h"

namespace tests::com {

using host::com::Bstr;
using host::com::ComPtr;
using host::com::Query;
using host::com::Variant;
using runtime::String;
using runtime::StringView;

/// Returns the code as a text, for example "0x80020005".
std::string Hex(HRESULT result);
std::string Utf8(BSTR text);

/// The result of a late-bound call.
struct Outcome {
    HRESULT result = S_OK;
    Variant value;
    HRESULT scode = S_OK;
    std::string description;
    std::string source;
    unsigned badArgument = 77;  ///< 77: not set by the call
};

constexpr DISPID kLoad = 1;
constexpr DISPID kNotifyMe = 2;
constexpr DISPID kSeverPath = 3;

/// `arguments` have the order of IDispatch: the last parameter is first, and named arguments precede all others.
Outcome Invoke(IDispatch* object, DISPID member, WORD flags, std::vector<VARIANT> arguments,
               std::vector<DISPID> names = {});

VARIANT Missing();
VARIANT OfType(VARTYPE type);
VARIANT Text(const Bstr& text);
VARIANT Number(short number);
VARIANT ByReference(BSTR* text);
VARIANT ByReference(VARIANT* variable);

/// The thread's error object. TakeErrorObject clears it.
struct ErrorObject {
    bool isThere = false;
    std::string description;
    std::string source;
};
ErrorObject TakeErrorObject();
/// Returns the description of the thread's error object, or "(none)" if the thread has no error object.
std::string TextOfErrorObject();
/// Stores an error object with this description on the thread, as an earlier call to another component could.
void LeaveErrorObject(StringView description);

ComPtr<IClassFactory> Factory();
ComPtr<_clsQmxBackProcess> MakeInstance();
ComPtr<IConnectionPoint> EventsOf(IUnknown* instance);
DWORD Advise(IUnknown* instance, IUnknown* sink);
/// Calls NotifyMe("", command) through the interface, early bound.
HRESULT Notify(_clsQmxBackProcess* instance, StringView command);

/// Dispatches the messages that wait for this thread.
void ServeMessages();
/// Runs `work` on a new thread in another apartment. While `work` runs, the calling thread dispatches messages. If
/// `work` takes longer than ten seconds, the test program ends with a failure.
void InOtherApartment(const std::function<void()>& work, DWORD apartment = COINIT_APARTMENTTHREADED);

class ComTest : public testing::Test {
 protected:
    ComTest();
    ~ComTest() override;
};

}  // namespace tests::com
