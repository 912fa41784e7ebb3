#pragma once

#include "tests/adapters/com/peer_object.hpp"

namespace TBVNonPara::Peer {

/// Members that only tests use: Calls and Objects count what peer_object.hpp counts, Hook and Unhook tell the
/// registered library of the application, Publish and Withdraw make it the active one, CreateObject(name)
/// creates an object in the application's process.
void addTestMembers(PeerObject& application);

/// What the application says that its window is.
void setWindow(HWND window) noexcept;

}  // namespace TBVNonPara::Peer
