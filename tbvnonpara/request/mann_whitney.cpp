#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatMannUResults() try {
    clsNonParaOutput report(m_Companions);
    const Labels names = pairLabels(m_YRange, m_XRange, m_Headers);
    const std::string yText = rangeText(m_YRange);
    const std::string xText = rangeText(m_XRange);
    report.OutputHeader(yText, xText, m_Method);
    report.InsertBlankLines(1);
    if (m_OutputDescriptives) {
        outputGroupDescriptives(report, names, *m_Engine, m_Method);
    }
    const double U = m_Engine->GetU();
    const Array<Long> DF = m_Engine->GetDF();
    const double P = m_Engine->GetP();
    report.OutputMWTest(names, U, DF, P, m_Tails);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatMannUResults");
}

}  // namespace TBVNonPara
