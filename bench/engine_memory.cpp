// engine_memory [ROWS]
// The most memory that the engine holds at once in a run, in bytes for each byte of its input as doubles: all
// of it, with the cells of the input, and what it takes besides them.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <new>

#include "bench/methods.hpp"
#include "bench/samples.hpp"
#include "tbvnonpara/distributions/mann_whitney.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace {

std::size_t held = 0;
std::size_t most = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    held += malloc_usable_size(memory);
    most = std::max(most, held);
    return memory;
}

void operator delete(void* memory) noexcept {
    held -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace TBVNonPara::Bench {

namespace {

void measure(const Method& test, const char* data, int distinct, bool descriptives, Long rows) {
    clsNonParaBO engine(ownCompanions(workbook::makeApplication()));
    Samples samples(distinct);
    const std::size_t before = held;
    engine.LetMethod(test.method);
    engine.LetDescriptives(descriptives);
    engine.LetYs(samples.grid(rows, test.columns));
    if (test.takesPairs) {
        engine.Letxs(samples.grid(rows, 1));
    }
    const std::size_t cells = held - before;
    most = held;
    engine.Analyse();
    const double input = toDouble(rows) * (test.columns + (test.takesPairs ? 1 : 0)) * sizeof(double);
    std::printf("%-15.*s %-9s %-13s %5.2f %5.2f\n", static_cast<int>(test.name.size()), test.name.data(),
                data, descriptives ? "descriptives" : "", static_cast<double>(most - before) / input,
                static_cast<double>(most - before - cells) / input);
}

void measureExactMannWhitney() {
    const std::size_t before = held;
    most = held;
    (void)mannWhitneyP(223, 224, 30000, 19952, 0, tbvNPTwoTailed, nullptr);
    std::printf("exact Mann-Whitney at 223 x 224: %.2f MB\n", static_cast<double>(most - before) / 1e6);
}

}  // namespace

}  // namespace TBVNonPara::Bench

int main(int count, char** words) {
    using namespace TBVNonPara;
    using namespace TBVNonPara::Bench;
    const int rows = count > 1 ? std::atoi(words[1]) : 1000000;
    // Nearly all distinct: without any repetition the runs have no variance.
    constexpr int manyCodes = 1'000'000'000;
    std::printf("%-15s %-9s %-13s %5s %5s\n", "test", "data", "", "all", "more");
    for (const Method& test : methods) {
        for (const bool descriptives : {false, true}) {
            measure(test, "distinct", test.method == tbvNPWWRuns ? manyCodes : 0, descriptives, rows);
            measure(test, "tied", 7, descriptives, rows);
        }
    }
    measureExactMannWhitney();
}
