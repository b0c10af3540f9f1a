#include "host/com/PeerGone.h"

#include <algorithm>
#include <iterator>

namespace host::com {
namespace {

const HRESULT kAnswersOfGonePeers[] = {
    RPC_E_DISCONNECTED,
    RPC_E_SERVER_DIED,
    RPC_E_SERVER_DIED_DNE,
    RPC_E_INVALID_OBJECT,
    CO_E_OBJNOTCONNECTED,
    HRESULT_FROM_WIN32(RPC_S_UNKNOWN_IF),
    HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE),
    HRESULT_FROM_WIN32(RPC_S_CALL_FAILED),
    HRESULT_FROM_WIN32(RPC_S_CALL_FAILED_DNE),
};

}  // namespace

bool IsPeerGone(HRESULT result) noexcept {
    return std::ranges::find(kAnswersOfGonePeers, result) != std::end(kAnswersOfGonePeers);
}

}  // namespace host::com
