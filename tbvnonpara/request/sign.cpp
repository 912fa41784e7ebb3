#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

namespace {

/// The names of two variables; an empty header cell leaves its variable the name of its column.
Labels namesOrColumns(const RangeRef& first, const RangeRef& second, bool headers) {
    Labels labels(2);
    if (headers) {
        labels = pairLabels(first, second, true);
    }
    if (labels(1).empty()) {
        labels(1) = label(first, false);
    }
    if (labels(2).empty()) {
        labels(2) = label(second, false);
    }
    return labels;
}

}  // namespace

RangeRef clsNonPara::FormatSignResults(const Run& run) try {
    clsNonParaOutput report(m_Companions);
    Labels labels(2);
    if (run.xRange.isSet()) {
        labels = namesOrColumns(run.yRange, run.xRange, run.headers);
        const std::string yText = rangeText(run.yRange);
        const std::string xText = rangeText(run.xRange);
        report.OutputHeader(yText, xText, run.method);
    } else {
        report.OutputHeader(rangeText(run.yRange), "", run.method);
    }
    report.InsertBlankLines(1);
    const auto counts = std::get<Array<Long>>(m_Engine->GetOther());
    const double P = m_Engine->GetP();
    report.OutputSignTest(labels, counts, P, run.tails);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatSignResults");
}

}  // namespace TBVNonPara
