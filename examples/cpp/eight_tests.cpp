// The eight tests on vectors: what each compares and its exact probability.

#include <cstdio>
#include <tbvnonpara/statistics.hpp>
#include <vector>

int main() {
    using namespace TBVNonPara::statistics;

    const std::vector<double> before{14.1, 12.8, 15.0, 13.3, 12.1};
    const std::vector<double> after{16.2, 15.4, 14.9, 17.0, 16.6};
    const std::vector<double> later{17.3, 16.0, 17.8, 18.1, 17.7};
    const std::vector<std::vector<double>> all{before, after, later};
    const std::vector<double> weather{1, 1, 0, 0, 0, 1, 0, 1, 1, 1};

    const MannWhitney independent = mannWhitney(before, after, {.confidence = 0.9});
    const auto& shift = independent.shift;
    std::printf("Mann-Whitney    U = %g, P = %.4f\n", independent.u[0], independent.exact->two.value);
    std::printf("  before - after = %.1f, %.1f to %.1f\n", shift.value, shift.low.value(),
                shift.high.value());

    const Wilcoxon paired = wilcoxon(before, after);
    const SignedRanks& ranks = paired.zerosLeftOut;
    std::printf("Wilcoxon        T+ = %g, P = %.4f\n", ranks.plus, ranks.exact->two.value);

    const Spearman together = spearman(before, after);
    std::printf("Spearman        rho = %.1f, P = %.4f\n", together.rho->value, together.exact->two.value);

    const Sign signs = sign(before, after);
    std::printf("Sign            %zu of %zu, P = %.4f\n", signs.positive, signs.n, signs.exact->two.value);

    const Median medians = median(spansOf(all));
    std::printf("Median          %.1f, P = %.4f\n", medians.grandMedian, medians.exact->p.value);

    const Friedman blocks = friedman(spansOf(all));
    std::printf("Friedman        W = %.2f, P = %.4f\n", blocks.kendallW->value, blocks.exact->p.value);

    const KruskalWallis groups = kruskalWallis(spansOf(all));
    std::printf("Kruskal-Wallis  H = %.2f, P = %.4f\n", groups.chiSquare->value, groups.exact->p.value);
    for (const auto& pair : groups.comparisons) {
        std::printf("  %zu and %zu: adjusted P = %.4f\n", pair.first + 1, pair.second + 1,
                    pair.adjusted.value);
    }

    const Runs order = runs(weather);
    const Figure figures = figureOf(order);  // any result by the names that JSON has
    std::printf("Runs            %lld, P = %.4f\n",
                static_cast<long long>(std::get<std::int64_t>(find(figures, "data.runs")->value)),
                std::get<double>(find(figures, "p.exact.two.value")->value));
}
