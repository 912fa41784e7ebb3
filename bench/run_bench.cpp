// A whole run of each test on the embedded workbook, from a client's settings to the report on the sheet.

#include <benchmark/benchmark.h>

#include "bench/samples.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::Bench {

namespace {

struct Test {
    const char* name;
    TBVNPMethod method;
    const char* yColumns;
    const char* xColumn;
    int distinct;
};

const Test tests[] = {
    {"MannWhitney", tbvNPMannU, "A", "B", 0},      {"Wilcoxon", tbvNPWilcoxon, "A", "B", 0},
    {"Spearman", tbvNPSpearman, "A", "B", 0},      {"Sign", tbvNPSign, "A", "B", 0},
    {"Median", tbvNPMedian, "A:C", "", 0},         {"Friedman", tbvNPFriedman, "A:C", "", 0},
    {"KruskalWallis", tbvNPKWallis, "A:C", "", 0}, {"Runs", tbvNPWWRuns, "A", "", 2},
};

/// "A" and 10 rows give Data!A1:A10, "A:C" gives Data!A1:C10.
std::string address(const std::string& columns, std::int64_t rows) {
    return "Data!" + columns.substr(0, 1) + "1:" + columns.back() + std::to_string(rows);
}

void wholeRun(benchmark::State& state, const Test& test, bool descriptives) {
    const std::int64_t rows = state.range(0);
    const ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    application->addSheet("Data", Samples(test.distinct).grid(rows, 3));
    const CompanionLibrary companions = ownCompanions(application);
    for (auto _ : state) {
        clsNonPara request(companions);
        request.LetMethod(test.method);
        request.LetOutputDescriptives(descriptives);
        request.LetYRange(address(test.yColumns, rows));
        if (*test.xColumn != '\0') {
            request.LetXRange(address(test.xColumn, rows));
        }
        request.LetOutputRange("Data!F1");
        request.Results(true);
    }
}

const bool registered = [] {
    for (const Test& test : tests) {
        for (const bool descriptives : {false, true}) {
            const std::string name = std::string(test.name) + (descriptives ? "/descriptives" : "");
            benchmark::RegisterBenchmark(name.c_str(), wholeRun, test, descriptives)
                ->Arg(10)
                ->Arg(1000)
                ->Arg(100000)
                ->Arg(1000000)
                ->Unit(benchmark::kMillisecond);
        }
    }
    return true;
}();

}  // namespace

}  // namespace TBVNonPara::Bench
