#include <cmath>
#include <cstdint>
#include <utility>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/core/wide_number.hpp"
#include "tbvnonpara/engine/categories.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara {

namespace {

Long countRuns(const ValueGrid& values) {
    Long runs = 1;
    const CellValue* previous = &values(1, 1);
    for (const CellValue& cell : values.column(1)) {
        if (!sameCategory(cell, *previous)) {
            runs += 1;
        }
        previous = &cell;
    }
    return runs;
}

struct RunsMoments {
    double expected = 0;
    double variance = 0;
};

// The variance is a small difference of fourth powers of N, all of them whole numbers. In 128 bits it is
// exact; in doubles a long column with a single category, or with no two cells alike, would get a variance of
// noise instead of 0.
RunsMoments momentsOfRuns(const Array<Long>& counts, Long cells) {
    const auto N = static_cast<std::uint64_t>(cells.value());
    std::uint64_t S2 = 0;
    WideNumber S3;
    for (const Long count : counts.elements()) {
        const auto n = static_cast<std::uint64_t>(count.value());
        S2 += n * n;
        S3 = S3 + WideNumber::product(n * n, n);
    }
    const WideNumber more = WideNumber::product((N + 1) * N + S2, S2);
    const WideNumber less = S3 * (2 * N) + WideNumber::product(N * N, N);
    const double spread = more < less ? -(less - more).toDouble() : (more - less).toDouble();
    const WideNumber pairs = WideNumber::product(N * N, N - 1);
    return {divide(static_cast<double>((N + 1) * N - S2), static_cast<double>(N)),
            divide(spread, pairs.toDouble())};
}

double runsProbability(double P2, double runs, double E, TBVNPTails tails) {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return runs <= E ? P2 / 2 : 1 - P2 / 2;
        case tbvNPVar1LTVar2:
            return runs >= E ? P2 / 2 : 1 - P2 / 2;
        default:
            return P2;
    }
}

}  // namespace

void clsNonParaBO::AnalyseWWRuns() try {
    const ValueGrid& cells = m_Ys.cells();
    const Long runs = countRuns(cells);
    Categories categories = findCategories(cells.column(1));

    const auto [E, V] = momentsOfRuns(categories.counts, cells.rows());
    // The correction is taken from the absolute distance: within 0.5 of E the statistic is negative and the
    // two-tailed probability above 1.
    const double z = divide(std::abs(toDouble(runs) - E) - 0.5, squareRoot(V));
    const double P2 = 2 * (1 - functions().NORMSDIST(z));

    m_NumRuns = runs;
    m_ExpectedRuns = E;
    m_Statistic = z;
    m_P = runsProbability(P2, toDouble(runs), E, m_Tails);
    m_Descriptives.write(m_Utility).summaries.raw.ns = std::move(categories.counts);
    m_Other = std::move(categories.values);
} catch (...) {
    passOn("clsNonParaBO.AnalyseWWRuns");
}

}  // namespace TBVNonPara
