#include <iostream>
#include <sstream>

#include "adapters/com/automation_application.hpp"
#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/details/clsNonParaDetails.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/adapters/com/peer_application.hpp"
#include "tests/adapters/com/recording.hpp"

// Writes the calls that the eight tests and the details make on a spreadsheet application, as the statements
// of a macro. The sheet "Data" holds what replay.py puts there.

namespace {

using namespace TBVNonPara;

struct Run {
    TBVNPMethod method;
    const char* y;
    const char* x;
    const char* output;
};

const Run runs[] = {
    {tbvNPMannU, "Data!A1:A6", "Data!B1:B6", "Data!J1"},
    {tbvNPWilcoxon, "Data!A1:A6", "Data!B1:B6", ""},
    {tbvNPSpearman, "Data!A1:A6", "Data!B1:B6", "Data!J41"},
    {tbvNPSign, "Data!C1:C6", "", "Data!J81"},
    {tbvNPMedian, "Data!A1:B6", "", "Data!J121"},
    {tbvNPFriedman, "Data!A1:C6", "", "Data!J161"},
    {tbvNPKWallis, "Data!A1:B6", "", "Data!J201"},
    {tbvNPWWRuns, "Data!D1:D6", "", "Data!J241"},
};

/// Asks for what stands in the report's cells, so that another application has to have the same there.
void readReport(const std::string& address, const Application& application) {
    constexpr int rows = 20;
    constexpr int columns = 6;
    const RangeRef first = application.GetRange(address);
    for (Long row = 1; row <= Long(rows); ++row) {
        for (Long column = 1; column <= Long(columns); ++column) {
            (void)first->GetCells(row, column)->GetValue();
        }
    }
}

void carryOut(const Run& run, const ObjectRef<Application>& application) {
    clsNonPara request(ownCompanions(application));
    request.LetMethod(run.method);
    request.LetHeaders(true);
    request.LetOutputDescriptives(true);
    request.LetYRange(run.y);
    request.LetXRange(run.x);
    request.LetOutputRange(run.output);
    request.Results();
    readReport(*run.output == '\0' ? "Sheet2!A1" : run.output, *application);
}

/// Onto the sheet of the data, by way of one that goes again. (A sheet of their own takes its name among
/// those of the workbook, which that office does not list without a window.)
void writeDetails(const ObjectRef<Application>& application) {
    clsNonParaDetails details(ownCompanions(application));
    details.LetMethod(tbvNPKWallis);
    details.LetHeaders(true);
    details.LetYRange("Data!A1:C6");
    details.Calculate();
    details.WriteTo("Data!J281");
    readReport("Data!J281", *application);
}

void record(std::ostream& out) {
    const auto workbook = workbook::makeApplication();
    workbook->addSheet("Data", ValueGrid{{"a", "b", "s", "g"},
                                         {1.0, 4.5, 1.0, 1.0},
                                         {2.0, 5.0, -1.0, 1.0},
                                         {3.5, 6.0, 1.0, 2.0},
                                         {3.0, 2.5, 0.0, 2.0},
                                         {5.0, 9.0, 1.0, 2.0}});
    const Peer::PeerRef peer = Peer::peerApplication(workbook);
    Peer::recordCalls(&out);
    for (const Run& run : runs) {
        out << "' method " << run.method << "\nSet o(" << peer->serial() << ") = Application\n";
        carryOut(run, com::automationApplication([peer] { return peer.as<IDispatch>(); }));
    }
    out << "' details\nSet o(" << peer->serial() << ") = Application\n";
    writeDetails(com::automationApplication([peer] { return peer.as<IDispatch>(); }));
    Peer::recordCalls(nullptr);
}

}  // namespace

int main() {
    try {
        std::ostringstream statements;
        record(statements);
        std::cout << statements.str();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
