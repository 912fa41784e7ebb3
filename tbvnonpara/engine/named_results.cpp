#include "tbvnonpara/engine/named_results.hpp"

#include <algorithm>

namespace TBVNonPara {

namespace {

using Results = std::vector<NamedResult>;

Results mannWhitney(const clsNonParaBO& engine) {
    return {{"u", engine.GetU()}, {"df", engine.GetDF()}, {"p", engine.GetP()}};
}

void addRankSummary(const std::string& name, Long group, const clsNonParaBO& engine, Results& results) {
    results.push_back({name + ".median", engine.GetMediansRank()(group)});
    results.push_back({name + ".sum", engine.GetSumsRank()(group)});
    results.push_back({name + ".n", engine.GetNsRank()(group)});
}

Results wilcoxon(const clsNonParaBO& engine) {
    const bool approximate = engine.GetUseApprox();
    Results results = {
        {"method", approximate ? "approximate" : "exact"},
        {approximate ? "z" : "t", approximate ? engine.GetAlternateStat() : engine.GetWilcoxonT()},
        {"n", (approximate ? engine.GetAlternateDF() : engine.GetDF())(1)},
        {"p", approximate ? engine.GetAlternateP() : engine.GetP()}};
    addRankSummary("positive", 1, engine, results);
    addRankSummary("negative", 2, engine, results);
    addRankSummary("zero", 3, engine, results);
    return results;
}

Results spearman(const clsNonParaBO& engine) {
    return {{"rs", engine.GetWilcoxonT()},
            {"df", engine.GetDF()},
            {"p", engine.GetP()},
            {"z", engine.GetAlternateStat()},
            {"zP", engine.GetAlternateP()}};
}

Results sign(const clsNonParaBO& engine) {
    const auto counts = std::get<Array<Long>>(engine.GetOther());
    return {{"positive", counts(1)}, {"neither", counts(2)}, {"negative", counts(3)}, {"p", engine.GetP()}};
}

/// A row of the table of counts without its label.
std::vector<double> rowOfCounts(const ValueGrid& table, Long row) {
    std::vector<double> counts;
    for (Long column = 2; column <= table.columns(); ++column) {
        counts.push_back(toDouble(table(row, column)));
    }
    return counts;
}

Results median(const clsNonParaBO& engine) {
    const auto counts = std::get<ValueGrid>(engine.GetOther());
    const ContingencyAnalysis& table = *engine.GetContingencyResults();
    Results results = {{"grandMedian", engine.GetGrandMedian()},  {"above", rowOfCounts(counts, 2)},
                       {"notAbove", rowOfCounts(counts, 3)},      {"df", Array<Long>{table.GetDF()}},
                       {"chiSquare", table.GetChiSquare().value}, {"p", table.GetChiSquare().p}};
    if (table.GetHasYates()) {
        results.push_back({"yates", table.GetYates().value});
        results.push_back({"yatesP", table.GetYates().p});
    }
    if (table.GetHasCochran()) {
        results.push_back({"cochran", table.GetCochran().value});
        results.push_back({"cochranP", table.GetCochran().p});
    }
    results.push_back({"logLikelihood", table.GetLogLikelihood().value});
    results.push_back({"logLikelihoodP", table.GetLogLikelihood().p});
    results.push_back({"warning", !table.GetWarning().empty()});
    return results;
}

Results kSamples(const clsNonParaBO& engine) {
    return {
        {"chiSquare", engine.GetChiSq()}, {"df", engine.GetDF()},           {"p", engine.GetP()},
        {"f", engine.GetAlternateStat()}, {"fDf", engine.GetAlternateDF()}, {"fP", engine.GetAlternateP()}};
}

Results runs(const clsNonParaBO& engine) {
    return {{"runs", engine.GetNumRuns()},
            {"expected", engine.ExpectedRuns()},
            {"z", engine.GetZ()},
            {"p", engine.GetP()},
            {"categories", std::get<Array<CellValue>>(engine.GetOther())},
            {"counts", engine.GetNsRaw()}};
}

}  // namespace

std::vector<NamedResult> namedResults(TBVNPMethod method, const clsNonParaBO& engine) {
    switch (method) {
        case tbvNPMannU:
            return mannWhitney(engine);
        case tbvNPWilcoxon:
            return wilcoxon(engine);
        case tbvNPSpearman:
            return spearman(engine);
        case tbvNPSign:
            return sign(engine);
        case tbvNPMedian:
            return median(engine);
        case tbvNPFriedman:
        case tbvNPKWallis:
            return kSamples(engine);
        case tbvNPWWRuns:
            return runs(engine);
    }
    return {};
}

double reportedP(TBVNPMethod method, const clsNonParaBO& engine) {
    const std::vector<NamedResult> results = namedResults(method, engine);
    return std::get<double>(std::ranges::find(results, "p", &NamedResult::name)->value);
}

}  // namespace TBVNonPara
