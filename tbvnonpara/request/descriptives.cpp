#include "tbvnonpara/request/descriptives.hpp"

namespace TBVNonPara {

void outputGroupDescriptives(clsNonParaOutput& report, const Labels& labels, const clsNonParaBO& engine,
                             TBVNPMethod method) {
    const Grid<double> data = engine.GetData();
    const Array<double> mediansRaw = engine.GetMediansRaw();
    const Array<double> sumsRaw = engine.GetSumsRaw();
    const Array<Long> nsRaw = engine.GetNsRaw();
    const Grid<double> ranks = engine.GetRanks();
    const Array<double> mediansRank = engine.GetMediansRank();
    const Array<double> sumsRank = engine.GetSumsRank();
    const Array<Long> nsRank = engine.GetNsRank();
    report.OutputMWDescriptives(labels, data, mediansRaw, sumsRaw, nsRaw, ranks, mediansRank, sumsRank,
                                nsRank, method);
    report.InsertBlankLines(1);
}

}  // namespace TBVNonPara
