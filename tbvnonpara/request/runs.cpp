#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatWWRunsResults(const Run& run) try {
    clsNonParaOutput report(m_Companions);
    Labels names(1);
    names(1) = label(run.yRange, run.headers);
    report.OutputHeader(rangeText(run.yRange), "", run.method);
    report.InsertBlankLines(1);
    const auto categories = std::get<Array<CellValue>>(m_Engine->GetOther());
    const Array<Long> counts = m_Engine->GetNsRaw();
    const Long runs = m_Engine->GetNumRuns();
    const double expected = m_Engine->ExpectedRuns();
    const double Z = m_Engine->GetZ();
    const double P = m_Engine->GetP();
    report.OutputWWRuns(names, categories, counts, runs, expected, Z, P, run.tails);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatWWRunsResults");
}

}  // namespace TBVNonPara
