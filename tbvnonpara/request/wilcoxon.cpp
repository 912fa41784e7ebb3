#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

namespace {

void outputDescriptives(clsNonParaOutput& report, const Labels& labels, const clsNonParaBO& engine) {
    const Grid<double> data = engine.GetData();
    const Array<double> medians = engine.GetMediansRaw();
    const Array<double> sums = engine.GetSumsRaw();
    const Array<Long> ns = engine.GetNsRaw();
    const Grid<double> differences = engine.GetRanks();
    report.OutputWilcoxonDescriptives(labels, data, medians, sums, ns, differences);
    report.InsertBlankLines(1);
}

void outputRanks(clsNonParaOutput& report, const Labels& labels, const clsNonParaBO& engine) {
    const Array<double> medians = engine.GetMediansRank();
    const Array<double> sums = engine.GetSumsRank();
    const Array<Long> ns = engine.GetNsRank();
    report.OutputWilcoxonRanks(medians, sums, ns, labels);
    report.InsertBlankLines(1);
}

/// The statistic, the count and the probability of one method, never a mixture.
void outputTest(clsNonParaOutput& report, const Labels& labels, const clsNonParaBO& engine,
                TBVNPTails tails) {
    if (engine.GetUseApprox()) {
        const double Z = engine.GetAlternateStat();
        const Array<Long> ns = engine.GetAlternateDF();
        const double P = engine.GetAlternateP();
        report.OutputWilcoxonTest(labels, Z, ns, P, tails, true);
    } else {
        const double T = engine.GetWilcoxonT();
        const Array<Long> ns = engine.GetDF();
        const double P = engine.GetP();
        report.OutputWilcoxonTest(labels, T, ns, P, tails, false);
    }
}

}  // namespace

RangeRef clsNonPara::FormatWilcoxonResults(const Run& run) try {
    clsNonParaOutput report(m_Companions);
    const Labels labels = pairLabels(run.yRange, run.xRange, run.headers);
    const std::string yText = rangeText(run.yRange);
    const std::string xText = rangeText(run.xRange);
    report.OutputHeader(yText, xText, run.method);
    report.InsertBlankLines(1);
    if (run.outputDescriptives) {
        outputDescriptives(report, labels, *m_Engine);
    }
    outputRanks(report, labels, *m_Engine);
    outputTest(report, labels, *m_Engine, run.tails);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    passOn("clsNonPara.FormatWilcoxonResults");
}

}  // namespace TBVNonPara
