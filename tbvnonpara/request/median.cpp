#include <array>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/request/descriptives.hpp"
#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

namespace {

/// As clients know it, letter for letter.
constexpr std::array<std::string_view, 7> smallExpectedFrequencies = {
    "The expcted frequencies calculated for your data",
    "violate the assumtion for the following tests that",
    "no more than 20% of values are less than 5 and that",
    "no values are less than 1.  As such, the following",
    "results must be interprested with caution and either",
    "the pooling of categories or further sampling",
    "to increase the sample size are recommended.",
};

void outputContingency(clsNonParaOutput& report, const clsNonParaBO& engine) {
    const ContingencyStatistic chiSquare = engine.GetContingencyResults()->GetChiSquare();
    const Long DF = engine.GetContingencyResults()->GetDF();
    const ContingencyStatistic likelihood = engine.GetContingencyResults()->GetLogLikelihood();
    ContingencyStatistic yates;
    std::optional<double> yatesP;
    ContingencyStatistic cochran;
    std::optional<double> cochranP;
    if (engine.GetContingencyResults()->GetHasYates()) {
        yates = engine.GetContingencyResults()->GetYates();
        yatesP = yates.p;
        if (engine.GetContingencyResults()->GetHasCochran()) {
            cochran = engine.GetContingencyResults()->GetCochran();
            cochranP = cochran.p;
        }
    }
    report.OutputContingency(chiSquare.value, chiSquare.p, DF, likelihood.value, likelihood.p, yates.value,
                             yatesP, cochran.value, cochranP, 0, std::nullopt);
}

}  // namespace

RangeRef clsNonPara::FormatMedianResults(const Run& run) try {
    const Labels names = groupLabels(run.yRange, run.headers);
    const std::string yText = rangeText(run.yRange);
    clsNonParaOutput report(m_Companions);
    report.OutputHeader(yText, "", run.method);
    report.InsertBlankLines(1);
    if (run.outputDescriptives) {
        outputGroupDescriptives(report, names, *m_Engine, run.method);
    }
    const double grandMedian = m_Engine->GetGrandMedian();
    report.OutputComment("Grand Median = " + toText(grandMedian), 0, false);
    const auto counts = std::get<ValueGrid>(m_Engine->GetOther());
    report.OutputMedianCounts(names, counts);
    report.InsertBlankLines(1);
    if (!m_Engine->GetContingencyResults()->GetWarning().empty()) {
        for (const std::string_view line : smallExpectedFrequencies) {
            report.OutputComment(line, 0, false);
        }
    }
    outputContingency(report, *m_Engine);
    report.InsertBlankLines(1);
    return report.GetResults();
} catch (...) {
    // Clients know the errors of this report by this spelling.
    passOn("clsNonPara.FormatMedainResults");
}

}  // namespace TBVNonPara
