#include "cli/results.hpp"

#include "cli/json_values.hpp"

namespace TBVNonPara::cli {

namespace {

using Json = nlohmann::ordered_json;

Json listOf(const Array<Long>& numbers) {
    Json list = Json::array();
    for (Long i = 1; i <= numbers.size(); ++i) {
        list.push_back(numbers(i).value());
    }
    return list;
}

Json mannWhitney(const clsNonParaBO& engine) {
    return {{"u", engine.GetU()}, {"df", listOf(engine.GetDF())}, {"p", engine.GetP()}};
}

Json rankSummary(const clsNonParaBO& engine, Long group) {
    return {{"median", engine.GetMediansRank()(group)},
            {"sum", engine.GetSumsRank()(group)},
            {"n", engine.GetNsRank()(group).value()}};
}

Json wilcoxon(const clsNonParaBO& engine) {
    const bool approximate = engine.GetUseApprox();
    return {{"method", approximate ? "approximate" : "exact"},
            {approximate ? "z" : "t", approximate ? engine.GetAlternateStat() : engine.GetWilcoxonT()},
            {"n", (approximate ? engine.GetAlternateDF() : engine.GetDF())(1).value()},
            {"p", approximate ? engine.GetAlternateP() : engine.GetP()},
            {"positive", rankSummary(engine, 1)},
            {"negative", rankSummary(engine, 2)},
            {"zero", rankSummary(engine, 3)}};
}

Json spearman(const clsNonParaBO& engine) {
    return {{"rs", engine.GetWilcoxonT()},
            {"df", listOf(engine.GetDF())},
            {"p", engine.GetP()},
            {"z", engine.GetAlternateStat()},
            {"zP", engine.GetAlternateP()}};
}

Json sign(const clsNonParaBO& engine) {
    const auto counts = std::get<Array<Long>>(engine.GetOther());
    return {{"positive", counts(1).value()},
            {"neither", counts(2).value()},
            {"negative", counts(3).value()},
            {"p", engine.GetP()}};
}

Json rowOfCounts(const ValueGrid& table, Long row) {
    Json counts = Json::array();
    for (Long column = 2; column <= table.columns(); ++column) {
        counts.push_back(toDouble(table(row, column)));
    }
    return counts;
}

Json median(const clsNonParaBO& engine) {
    const auto counts = std::get<ValueGrid>(engine.GetOther());
    const ContingencyAnalysis& table = *engine.GetContingencyResults();
    Json results = {{"grandMedian", engine.GetGrandMedian()},  {"above", rowOfCounts(counts, 2)},
                    {"notAbove", rowOfCounts(counts, 3)},      {"df", {table.GetDF().value()}},
                    {"chiSquare", table.GetChiSquare().value}, {"p", table.GetChiSquare().p}};
    if (table.GetHasYates()) {
        results["yates"] = table.GetYates().value;
        results["yatesP"] = table.GetYates().p;
    }
    if (table.GetHasCochran()) {
        results["cochran"] = table.GetCochran().value;
        results["cochranP"] = table.GetCochran().p;
    }
    results["logLikelihood"] = table.GetLogLikelihood().value;
    results["logLikelihoodP"] = table.GetLogLikelihood().p;
    results["warning"] = !table.GetWarning().empty();
    return results;
}

Json kSamples(const clsNonParaBO& engine) {
    return {{"chiSquare", engine.GetChiSq()},
            {"df", listOf(engine.GetDF())},
            {"p", engine.GetP()},
            {"f", engine.GetAlternateStat()},
            {"fDf", listOf(engine.GetAlternateDF())},
            {"fP", engine.GetAlternateP()}};
}

Json runs(const clsNonParaBO& engine) {
    const auto categories = std::get<Array<CellValue>>(engine.GetOther());
    Json names = Json::array();
    for (Long i = 1; i <= categories.size(); ++i) {
        names.push_back(jsonOf(categories(i)));
    }
    return {{"runs", engine.GetNumRuns().value()},
            {"expected", engine.ExpectedRuns()},
            {"z", engine.GetZ()},
            {"p", engine.GetP()},
            {"categories", std::move(names)},
            {"counts", listOf(engine.GetNsRaw())}};
}

}  // namespace

Json namedResults(TBVNPMethod method, const clsNonParaBO& engine) {
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
    return Json::object();
}

}  // namespace TBVNonPara::cli
