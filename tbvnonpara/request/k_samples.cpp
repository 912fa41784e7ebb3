#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatKWallisResults(const Run& run) try {
    const Labels names = groupLabels(run.yRange, run.headers);
    const std::string yText = rangeText(run.yRange);
    clsNonParaOutput report(m_Companions);
    report.OutputHeader(yText, "", run.method);
    report.InsertBlankLines(1);
    if (run.outputDescriptives) {
        outputGroupDescriptives(report, names, *m_Engine, run.method);
    }
    const double chiSq = m_Engine->GetChiSq();
    const Array<Long> DF = m_Engine->GetDF();
    const double P = m_Engine->GetP();
    const double F = m_Engine->GetAlternateStat();
    const Array<Long> alternateDF = m_Engine->GetAlternateDF();
    const double alternateP = m_Engine->GetAlternateP();
    report.OutputKWallis(chiSq, DF, P, F, alternateDF, alternateP);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatKWallisResults");
}

}  // namespace TBVNonPara
