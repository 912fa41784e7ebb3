#include "tests/adapters/com/peer_application.hpp"

#include "tests/adapters/com/peer_addresses.hpp"
#include "tests/adapters/com/peer_range.hpp"
#include "tests/adapters/com/peer_tests.hpp"

namespace TBVNonPara::Peer {

namespace {

using com::Variant;
using Embedded = ObjectRef<workbook::EmbeddedApplication>;

PeerRef functions(const Embedded& host) {
    const WorksheetFunction& of = host->GetWorksheetFunction();
    return makePeer({
        {L"NormSDist", [host, &of](const Arguments& a) { return Variant(of.NORMSDIST(a.real(0))); }},
        {L"ChiDist", [host, &of](const Arguments& a) { return Variant(of.ChiDist(a.real(0), a.number(1))); }},
        {L"FDist",
         [host, &of](const Arguments& a) { return Variant(of.FDist(a.real(0), a.number(1), a.number(2))); }},
        {L"CountIf", [host, &of](const Arguments& a) { return Variant(of.CountIf(a.range(0), a.text(1))); }},
    });
}

PeerRef workbooks(const Embedded& host) {
    return makePeer({
        {L"Item",
         [host](const Arguments& a) { return asValue(peerWorkbook(host->GetWorkbooks(a.text(0)))); }},
    });
}

/// The sheets of the active workbook.
PeerRef activeWorksheets(const Embedded& host) {
    const auto book = host->activeBook();
    return makePeer({
        plain(L"Count", [book] { return Variant(book->GetWorksheetsCount().value()); }),
        {L"Item", [book](const Arguments& a) { return asValue(worksheetOf(*book, a)); }},
        {L"Add", [host](const Arguments&) { return asValue(peerWorksheet(host->AddWorksheets())); }},
    });
}

Variant rangeOf(const Embedded& host, const Arguments& a) {
    return asValue(peerRange(
        a.isText(0) ? host->GetRange(asApplicationsReadIt(a.text(0), host->activeSheet()->GetName()))
                    : host->GetRange(a.range(0), a.range(1))));
}

}  // namespace

std::vector<std::string>& statusBarTexts() noexcept {
    static std::vector<std::string> texts;
    return texts;
}

PeerRef peerApplication(const Embedded& host) {
    std::vector<Member> members = {
        {L"Range", [host](const Arguments& a) { return rangeOf(host, a); }},
        plain(L"Workbooks", [host] { return asValue(workbooks(host)); }),
        plain(L"Worksheets", [host] { return asValue(activeWorksheets(host)); }),
        plain(L"WorksheetFunction", [host] { return asValue(functions(host)); }),
        plain(
            L"ScreenUpdating", [host] { return Variant(host->screenUpdating()); },
            [host](const Arguments& a) { host->LetScreenUpdating(a.truth(0)); }),
        plain(
            L"DisplayAlerts", [] { return Variant(displayAlerts()); },
            [](const Arguments& a) { displayAlerts() = a.truth(0); }),
        plain(
            L"StatusBar", [] { return Variant(false); },
            [](const Arguments& a) { statusBarTexts().push_back(a.isText(0) ? a.text(0) : std::string()); }),
        plain(L"Selection", [host] { return asValue(peerRange(host->selection())); }),
        {L"AddSheet",
         [host](const Arguments& a) {
             host->addSheet(a.text(0));
             return Variant();
         }},
    };
    PeerRef application = makePeer(std::move(members));
    addTestMembers(*application.get());
    return application;
}

}  // namespace TBVNonPara::Peer
