#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/watched_host.hpp"

namespace TBVNonPara::Faults {

/// One test on the sheet "Data", as a client asks for it.
struct Analysis {
    std::string name;
    TBVNPMethod method;
    std::string yRange;
    std::string xRange;

    friend std::ostream& operator<<(std::ostream& out, const Analysis& analysis) {
        return out << analysis.name;
    }
};

/// One of each test, on data that none of them refuses.
inline const Analysis analyses[] = {
    {"MannWhitney", tbvNPMannU, "Data!A1:A8", "Data!B1:B6"},
    {"Wilcoxon", tbvNPWilcoxon, "Data!A1:A8", "Data!B1:B8"},
    {"Spearman", tbvNPSpearman, "Data!A1:A8", "Data!C1:C8"},
    {"Sign", tbvNPSign, "Data!A1:A8", "Data!C1:C8"},
    {"Median", tbvNPMedian, "Data!A1:C8", ""},
    {"Friedman", tbvNPFriedman, "Data!A1:A8,Data!B1:C8", ""},
    {"KruskalWallis", tbvNPKWallis, "Data!A1:C8", ""},
    {"Runs", tbvNPWWRuns, "Data!D1:D8", ""},
};

constexpr std::string_view outputCell = "Report!B2";
constexpr std::string_view outputBlock = "Report!A1:Z60";

/// A user's document with data and a sheet for reports; every call on it is told to `watch`.
class Desk {
 public:
    explicit Desk(Support::Watch watch)
        : m_Companions(ownCompanions(Support::watchHost(m_Application, std::move(watch)))) {
        m_Application->addSheet("Data", ValueGrid{{"A", "B", "C", "D"},
                                                  {12.0, 9.5, 21.0, "x"},
                                                  {14.0, 11.0, 13.0, "x"},
                                                  {9.0, 12.5, 17.0, "y"},
                                                  {17.0, 11.0, 19.0, "x"},
                                                  {13.0, 8.0, 13.0, "y"},
                                                  {15.0, 7.0, 26.0, "y"},
                                                  {11.0, 10.0, 10.5, "x"}});
        m_Application->addSheet("Report");
    }

    [[nodiscard]] const CompanionLibrary& companions() const { return m_Companions; }
    [[nodiscard]] workbook::EmbeddedApplication& application() const { return *m_Application; }
    [[nodiscard]] ValueGrid cells(std::string_view address) const {
        return m_Application->GetRange(address)->GetValue();
    }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application = workbook::makeApplication();
    CompanionLibrary m_Companions;
};

inline void putSettings(clsNonPara& request, const Analysis& analysis, bool descriptives) {
    request.LetMethod(analysis.method);
    request.LetHeaders(true);
    request.LetOutputDescriptives(descriptives);
    request.LetYRange(analysis.yRange);
    request.LetXRange(analysis.xRange);
    request.LetOutputRange(outputCell);
}

/// The report that a fresh object gives on a fresh document.
inline ValueGrid freshReport(const Analysis& analysis, bool descriptives) {
    const Desk desk([](const Support::HostCall&) {});
    clsNonPara request(desk.companions());
    putSettings(request, analysis, descriptives);
    request.Results();
    return desk.cells(outputBlock);
}

}  // namespace TBVNonPara::Faults
