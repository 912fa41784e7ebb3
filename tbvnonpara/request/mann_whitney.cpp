#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

RangeRef clsNonPara::FormatMannUResults(const Run& run) try {
    clsNonParaOutput report(m_Companions);
    const Labels names = pairLabels(run.yRange, run.xRange, run.headers);
    const std::string yText = rangeText(run.yRange);
    const std::string xText = rangeText(run.xRange);
    report.OutputHeader(yText, xText, run.method);
    report.InsertBlankLines(1);
    if (run.outputDescriptives) {
        outputGroupDescriptives(report, names, *m_Engine, run.method);
    }
    const double U = m_Engine->GetU();
    const Array<Long> DF = m_Engine->GetDF();
    const double P = m_Engine->GetP();
    report.OutputMWTest(names, U, DF, P, run.tails);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatMannUResults");
}

}  // namespace TBVNonPara
