#pragma once

#include "tbvnonpara/host/Workbook.hpp"
#include "tests/adapters/com/peer_object.hpp"

namespace TBVNonPara::Peer {

/// Whether cells are formatted as amounts: Value then gives their numbers as automation's currency, Value2
/// whole.
void showAmounts(bool amounts) noexcept;

/// The application's DisplayAlerts. While it is True a sheet that is deleted stays: the user is asked, and
/// says no.
[[nodiscard]] bool& displayAlerts() noexcept;

[[nodiscard]] PeerRef peerRange(const RangeRef& range);
[[nodiscard]] PeerRef peerWorksheet(const WorksheetRef& worksheet);
[[nodiscard]] PeerRef peerWorkbook(const WorkbookRef& workbook);

/// A workbook's sheet by position or name.
[[nodiscard]] PeerRef worksheetOf(const Workbook& workbook, const Arguments& which);

}  // namespace TBVNonPara::Peer
