#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatKWallisResults() try {
    const Labels names = groupLabels(m_YRange, m_Headers);
    const std::string yText = rangeText(m_YRange);
    clsNonParaOutput report(m_Companions);
    report.OutputHeader(yText, "", m_Method);
    report.InsertBlankLines(1);
    if (m_OutputDescriptives) {
        outputGroupDescriptives(report, names, *m_Engine, m_Method);
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
