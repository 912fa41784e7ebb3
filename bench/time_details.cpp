// time_details
// Prints what parts of the tests in full take, a line each: a name, the least seconds of processor time, and
// the most megabytes held over the data (0 where they are not asked for).

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "bench/samples.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/median.hpp"
#include "tbvnonpara/statistics/runs.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::Bench {

namespace {

using Sample = std::vector<double>;
using Spans = std::vector<std::span<const double>>;

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double megabytesHeld() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// The least of three, or of as many as half a second holds.
double leastSeconds(const std::function<void()>& action) {
    double least = 1e9;
    double spent = 0;
    for (int round = 0; round < 3 || (spent < 0.5 && round < 100'000); ++round) {
        const double start = processorTime();
        action();
        const double seconds = processorTime() - start;
        spent += seconds;
        least = std::min(least, seconds);
    }
    return least;
}

void tell(const std::string& name, double seconds, double megabytes = 0) {
    std::printf("%s\t%.9g\t%.1f\n", name.c_str(), seconds, megabytes);
    std::fflush(stdout);
}

void measure(const std::string& name, const std::function<void()>& action) {
    tell(name, leastSeconds(action));
}

/// With the memory that it takes: before anything larger has been held.
void measureWithMemory(const std::string& name, const std::function<void()>& action) {
    const double before = megabytesHeld();
    action();
    const double held = megabytesHeld() - before;
    tell(name, leastSeconds(action), held);
}

Sample sample(Samples& numbers, std::size_t size) {
    Sample values(size);
    std::ranges::generate(values, [&] { return numbers.next(); });
    return values;
}

std::vector<Sample> samples(Samples& numbers, std::size_t count, std::size_t size) {
    std::vector<Sample> all(count);
    std::ranges::generate(all, [&] { return sample(numbers, size); });
    return all;
}

void timeSelection() {
    Samples numbers;
    const statistics::Options noCounts{.exactSteps = 0};
    constexpr std::size_t million = 1'000'000;
    const Sample first = sample(numbers, million);
    const Sample second = sample(numbers, million);
    measureWithMemory("mann-whitney, 1,000,000 x 1,000,000",
                      [&] { (void)statistics::mannWhitney(first, second, noCounts); });
    measureWithMemory("wilcoxon, 1,000,000 pairs",
                      [&] { (void)statistics::wilcoxon(first, second, noCounts); });
}

void timeCounts() {
    Samples likert(5);
    const Sample first = sample(likert, 118);
    const Sample second = sample(likert, 118);
    measureWithMemory("exact mann-whitney, five levels, 118 + 118",
                      [&] { (void)statistics::mannWhitney(first, second); });
    Samples levels(2000);
    const Sample before = sample(levels, 999);
    const Sample after = sample(levels, 999);
    measureWithMemory("exact wilcoxon with ties, 999", [&] { (void)statistics::wilcoxon(before, after); });
    Samples numbers;
    const Sample x = sample(numbers, 16);
    const Sample y = sample(numbers, 16);
    measureWithMemory("exact spearman, 16", [&] { (void)statistics::spearman(x, y); });
    const std::vector<Sample> groups = samples(numbers, 3, 11);
    measureWithMemory("exact kruskal-wallis, 3 x 11",
                      [&] { (void)statistics::kruskalWallis(Spans(groups.begin(), groups.end())); });
    const std::vector<Sample> blocks = samples(numbers, 3, 629);
    measureWithMemory("exact friedman, 3 x 629",
                      [&] { (void)statistics::friedman(Spans(blocks.begin(), blocks.end())); });
    Samples three(3);
    const Sample sequence = sample(three, 2000);
    measureWithMemory("exact runs of 3 categories, 2,000", [&] { (void)statistics::runs(sequence); });
}

void timeSmall() {
    Samples numbers;
    const std::vector<Sample> all = samples(numbers, 3, 10);
    const Spans groups(all.begin(), all.end());
    const statistics::Options noCounts{.exactSteps = 0};
    const std::vector<std::size_t> sequence = {0, 1, 1, 0, 0, 1, 0, 1, 1, 1};
    measure("mann-whitney, 10 rows", [&] { (void)statistics::mannWhitney(all[0], all[1], noCounts); });
    measure("wilcoxon, 10 rows", [&] { (void)statistics::wilcoxon(all[0], all[1], noCounts); });
    measure("spearman, 10 rows", [&] { (void)statistics::spearman(all[0], all[1], noCounts); });
    measure("sign, 10 rows", [&] { (void)statistics::sign(all[0], all[1], noCounts); });
    measure("median, 10 rows", [&] { (void)statistics::median(groups, noCounts); });
    measure("friedman, 10 rows", [&] { (void)statistics::friedman(groups, noCounts); });
    measure("kruskal-wallis, 10 rows", [&] { (void)statistics::kruskalWallis(groups, noCounts); });
    measure("runs, 10 rows", [&] { (void)statistics::runs(sequence, noCounts); });
}

/// Five-fold ties: a fifth as many values as numbers.
void timeGroups() {
    constexpr std::size_t size = 200'000;
    Samples numbers(size);
    const std::vector<Sample> all = samples(numbers, 5, size);
    const Spans groups(all.begin(), all.end());
    measure("kruskal-wallis, 5 x 200,000", [&] { (void)statistics::kruskalWallis(groups); });
    ValueGrid cells(Long(static_cast<Index>(size)), Long(5));
    for (std::size_t g = 0; g < all.size(); ++g) {
        std::ranges::copy(all[g], cells.column(static_cast<Index>(g) + 1).begin());
    }
    clsNonParaBO engine(ownCompanions(workbook::makeApplication()));
    engine.LetMethod(tbvNPKWallis);
    engine.LetDescriptives(true);
    engine.LetYs(cells);
    measure("report of kruskal-wallis, 5 x 200,000", [&] { engine.Analyse(); });
}

}  // namespace

}  // namespace TBVNonPara::Bench

int main() {
    using namespace TBVNonPara::Bench;
    timeCounts();
    timeSelection();
    timeGroups();
    timeSmall();
    return 0;
}
