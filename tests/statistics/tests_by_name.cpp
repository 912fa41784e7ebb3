#include "tests/statistics/tests_by_name.hpp"

#include <span>
#include <stdexcept>

#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/median.hpp"
#include "tbvnonpara/statistics/runs.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"

namespace TBVNonPara::statistics {

namespace {

Figure ofTwo(const std::string& test, const Lists& samples, const Options& options) {
    const std::vector<double>& x = samples.at(0);
    const std::vector<double>& y = samples.at(1);
    if (test == "mann-whitney") {
        return figureOf(mannWhitney(x, y, options));
    }
    if (test == "wilcoxon") {
        return figureOf(wilcoxon(x, y, options));
    }
    return test == "spearman" ? figureOf(spearman(x, y, options)) : figureOf(sign(x, y, options));
}

}  // namespace

Figure figuresOfTest(const std::string& test, const Lists& samples, const Options& options) {
    const std::vector<std::span<const double>> groups(samples.begin(), samples.end());
    if (test == "runs") {
        return figureOf(runs(samples.at(0), options));
    }
    if (test == "median") {
        return figureOf(median(groups, options));
    }
    if (test == "kruskal-wallis") {
        return figureOf(kruskalWallis(groups, options));
    }
    return test == "friedman" ? figureOf(friedman(groups, options)) : ofTwo(test, samples, options);
}

double numberAt(const Figure& figures, const std::string& path) {
    const Figure* const found = find(figures, path);
    if (found != nullptr) {
        if (const auto* whole = std::get_if<std::int64_t>(&found->value)) {
            return static_cast<double>(*whole);
        }
        if (const auto* number = std::get_if<double>(&found->value)) {
            return *number;
        }
    }
    throw std::out_of_range("no number " + path);
}

bool exists(const Figure& figures, const std::string& path) {
    const Figure* const found = find(figures, path);
    return found != nullptr && !std::holds_alternative<std::monostate>(found->value);
}

}  // namespace TBVNonPara::statistics
