#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatSpearmanResults(const Run& run) try {
    clsNonParaOutput report(m_Companions);
    const Labels labels = pairLabels(run.yRange, run.xRange, run.headers);
    const std::string yText = rangeText(run.yRange);
    const std::string xText = rangeText(run.xRange);
    report.OutputHeader(yText, xText, run.method);
    report.InsertBlankLines(1);
    if (run.outputDescriptives) {
        outputGroupDescriptives(report, labels, *m_Engine, run.method);
    }
    const double rs = m_Engine->GetWilcoxonT();
    const Array<Long> DF = m_Engine->GetDF();
    const double P = m_Engine->GetP();
    // The titles of a correlation use no method word.
    report.OutputTest(labels, rs, DF, P, run.tails, run.method, "");
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatSpearmanResults");
}

}  // namespace TBVNonPara
