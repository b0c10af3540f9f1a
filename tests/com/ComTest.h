// What the tests of the COM edge share: a thread with COM, instances made as a client makes them, late-bound calls,
// and failures printed as a reader knows them.
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

/// "0x80020005".
std::string Hex(HRESULT result);
std::string Utf8(BSTR text);

/// What a late-bound call answered.
struct Outcome {
    HRESULT result = S_OK;
    Variant value;
    HRESULT scode = S_OK;
    std::string description;
    std::string source;
    unsigned badArgument = 77;  ///< 77: not touched
};

constexpr DISPID kLoad = 1;
constexpr DISPID kNotifyMe = 2;
constexpr DISPID kSeverPath = 3;

/// `arguments` in the order of IDispatch: last parameter first, named ones in front.
Outcome Invoke(IDispatch* object, DISPID member, WORD flags, std::vector<VARIANT> arguments,
               std::vector<DISPID> names = {});

VARIANT Missing();
VARIANT OfType(VARTYPE type);
VARIANT Text(const Bstr& text);
VARIANT Number(short number);
VARIANT ByReference(BSTR* text);
VARIANT ByReference(VARIANT* variable);

/// The thread's error object, taken out.
struct ErrorObject {
    bool isThere = false;
    std::string description;
    std::string source;
};
ErrorObject TakeErrorObject();
/// Its description, "(none)" when there is no error object.
std::string TextOfErrorObject();
/// Puts an error object with that description into its place, as an earlier call of another component does.
void LeaveErrorObject(StringView description);

ComPtr<IClassFactory> Factory();
ComPtr<_clsQmxBackProcess> MakeInstance();
ComPtr<IConnectionPoint> EventsOf(IUnknown* instance);
DWORD Advise(IUnknown* instance, IUnknown* sink);
/// NotifyMe("", command), early bound.
HRESULT Notify(_clsQmxBackProcess* instance, StringView command);

/// Handles the messages that wait for this thread.
void ServeMessages();
/// Runs `work` in a thread with an apartment of its own while this one serves its messages. Fails when it takes
/// longer than ten seconds.
void InOtherApartment(const std::function<void()>& work, DWORD apartment = COINIT_APARTMENTTHREADED);

class ComTest : public testing::Test {
 protected:
    ComTest();
    ~ComTest() override;
};

}  // namespace tests::com
