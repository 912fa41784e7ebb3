#pragma once

#include <string>

#include "adapters/com/com_ptr.hpp"

namespace TBVNonPara::Peer {

// {3D9F6B52-7A1C-4B0E-9D55-2C8E41A7F301}, {3D9F6B52-7A1C-4B0E-9D55-2C8E41A7F302}
constexpr GUID inProcessClass = {
    0x3d9f6b52, 0x7a1c, 0x4b0e, {0x9d, 0x55, 0x2c, 0x8e, 0x41, 0xa7, 0xf3, 0x01}};
constexpr GUID outOfProcessClass = {
    0x3d9f6b52, 0x7a1c, 0x4b0e, {0x9d, 0x55, 0x2c, 0x8e, 0x41, 0xa7, 0xf3, 0x02}};

/// Creates peer applications, each with a workbook of its own.
[[nodiscard]] com::ComPtr<IClassFactory> peerFactory();

/// A registered peer, in this process or, with CLSCTX_LOCAL_SERVER, in one of its own. A process that is on
/// its way out after its last client may take one more request and fail the next; then another one is
/// started.
[[nodiscard]] com::ComPtr<IDispatch> startPeer(const GUID& id, DWORD context);

/// Makes TBVPeer.InProcess, TBVPeer.OutOfProcess and, for the active application, Excel.Application known; or
/// forgets them.
void registerPeers(const std::wstring& library, const std::wstring& program);
void unregisterPeers();

}  // namespace TBVNonPara::Peer
