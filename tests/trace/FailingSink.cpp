// A client whose event sink fails. It raises one event and prints the result of each call that fails.
#include <cstdio>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "tests/com/Sink.h"

namespace {

using host::com::Bstr;
using host::com::ComPtr;

bool Succeeded(HRESULT result) {
    if (FAILED(result)) std::printf("0x%08lX\n", static_cast<unsigned long>(result));
    return SUCCEEDED(result);
}

void Run() {
    CLSID identifier;
    ComPtr<IK4TDiagnostics> instance;
    if (!Succeeded(CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &identifier)) ||
        !Succeeded(CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IK4TDiagnostics),
                                    instance.PutVoid()))) {
        return;
    }
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    const auto sink = tests::com::Sink::Make([](BSTR&, BSTR&, EXCEPINFO&) { return E_ACCESSDENIED; });
    DWORD cookie = 0;
    if (Succeeded(instance->QueryInterface(__uuidof(IConnectionPointContainer), container.PutVoid())) &&
        Succeeded(container->FindConnectionPoint(__uuidof(__clsQmxBackProcess), point.Put())) &&
        Succeeded(point->Advise(sink.Get(), &cookie))) {
        Succeeded(instance->AP_SendCmdAll(Bstr(u"OPEN").Get()));
    }
}

}  // namespace

int main() {
    OleInitialize(nullptr);
    Run();
    OleUninitialize();
}
