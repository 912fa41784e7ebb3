#include <string_view>

#include "tests/adapters/com/peer_factory.hpp"
#include "tests/adapters/com/peer_object.hpp"

// The peer application in a process of its own: started by the system for a client, it ends when the client
// has let go of everything, or after a minute. With "register LIBRARY" or "unregister" it does that and ends.

namespace {

using namespace TBVNonPara;

std::wstring ownPath() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

void serve() {
    constexpr UINT interval = 100;
    constexpr int mostIntervals = 600;
    DWORD registration = 0;
    CoRegisterClassObject(Peer::outOfProcessClass, Peer::peerFactory().get(), CLSCTX_LOCAL_SERVER,
                          REGCLS_MULTIPLEUSE, &registration);
    SetTimer(nullptr, 0, interval, nullptr);
    bool wasUsed = false;
    MSG message;
    for (int passed = 0; passed < mostIntervals && GetMessageW(&message, nullptr, 0, 0) > 0;) {
        DispatchMessageW(&message);
        passed += message.message == WM_TIMER ? 1 : 0;
        wasUsed = wasUsed || Peer::objectsAlive() > 0;
        if (wasUsed && Peer::objectsAlive() == 0) {
            break;
        }
    }
    CoRevokeClassObject(registration);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const std::wstring_view order = count > 1 ? arguments[1] : L"";
    if (order == L"register" && count == 3) {
        Peer::registerPeers(arguments[2], ownPath());
    } else if (order == L"unregister") {
        Peer::unregisterPeers();
    } else if (SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        serve();
        CoUninitialize();
    }
    return 0;
}
