#include "tests/adapters/com/peer_factory.hpp"

// The peer application inside a client's process.

STDAPI DllGetClassObject(REFCLSID wanted, REFIID interfaceId, void** object) {
    if (wanted != TBVNonPara::Peer::inProcessClass) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    return TBVNonPara::Peer::peerFactory()->QueryInterface(interfaceId, object);
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
