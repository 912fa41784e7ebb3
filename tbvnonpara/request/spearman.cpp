#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatSpearmanResults() try {
    clsNonParaOutput report(m_Companions);
    const Labels labels = pairLabels(m_YRange, m_XRange, m_Headers);
    const std::string yText = rangeText(m_YRange);
    const std::string xText = rangeText(m_XRange);
    report.OutputHeader(yText, xText, m_Method);
    report.InsertBlankLines(1);
    if (m_OutputDescriptives) {
        outputGroupDescriptives(report, labels, *m_Engine, m_Method);
    }
    const double rs = m_Engine->GetWilcoxonT();
    const Array<Long> DF = m_Engine->GetDF();
    const double P = m_Engine->GetP();
    // The titles of a correlation use no method word.
    report.OutputTest(labels, rs, DF, P, m_Tails, m_Method, "");
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatSpearmanResults");
}

}  // namespace TBVNonPara
