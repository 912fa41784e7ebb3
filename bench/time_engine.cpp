// time_engine FILE.csv TEST DESCRIPTIVES
// Prints the least seconds of processor time that the engine takes for a test of the file's columns, and
// those of std::sort of the same numbers, all groups pooled.

#include <algorithm>
#include <cstdio>

#include "bench/least_seconds.hpp"
#include "bench/methods.hpp"
#include "bench/numbers_file.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::Bench {

namespace {

double secondsOfSort(const std::vector<double>& numbers) {
    std::vector<double> sorted(numbers.size());
    const auto copy = [&] { std::ranges::copy(numbers, sorted.begin()); };
    const double seconds = leastSeconds([&] {
        copy();
        std::ranges::sort(sorted);
    });
    return seconds - leastSeconds(copy);
}

void timeEngine(const char* path, const Method& test, bool descriptives) {
    const NumbersFile file(path);
    clsNonParaBO engine(ownCompanions(workbook::makeApplication()));
    engine.LetMethod(test.method);
    engine.LetDescriptives(descriptives);
    engine.LetYs(file.grid(1, test.columns));
    if (test.takesPairs) {
        engine.Letxs(file.grid(2, 2));
    }
    const double seconds = leastSeconds([&] { engine.Analyse(); });
    std::printf("%.9g %.9g\n", seconds, secondsOfSort(file.numbers));
}

}  // namespace

}  // namespace TBVNonPara::Bench

int main(int count, char** words) {
    if (count != 4) {
        return 2;
    }
    TBVNonPara::Bench::timeEngine(words[1], TBVNonPara::Bench::methodNamed(words[2]), *words[3] == '1');
}
