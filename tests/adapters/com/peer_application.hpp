#pragma once

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/adapters/com/peer_object.hpp"

namespace TBVNonPara::Peer {

/// The embedded workbook as an automation application, with the names of the object model that spreadsheet
/// applications share. A text that is entered becomes what it looks like unless an apostrophe stands before
/// it. Beside them stand members for tests: AddSheet(name) and those of
/// peer_tests.hpp.
[[nodiscard]] PeerRef peerApplication(const ObjectRef<workbook::EmbeddedApplication>& host);

/// What the application's StatusBar was told; empty is the application's own text.
[[nodiscard]] std::vector<std::string>& statusBarTexts() noexcept;

}  // namespace TBVNonPara::Peer
