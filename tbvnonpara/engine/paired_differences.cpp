#include "tbvnonpara/engine/paired_differences.hpp"

#include <algorithm>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara {

namespace {

bool isComplete(const ValueGrid& first, const ValueGrid& second, Long i) {
    return !isEmpty(first(i, 1)) && !isEmpty(second(i, 1));
}

Long countComplete(const ValueGrid& first, const ValueGrid& second) {
    Long count = 0;
    for (Long i = 1; i <= first.rows(); ++i) {
        if (isComplete(first, second, i)) {
            ++count;
        }
    }
    return count;
}

Array<double> differencesOfCells(const ValueGrid& first, const ValueGrid& second) {
    Array<double> differences(countComplete(first, second));
    Long k = 0;
    for (Long i = 1; i <= first.rows(); ++i) {
        if (isComplete(first, second, i)) {
            ++k;
            differences(k) = throughSinglePrecisionText(toDouble(first(i, 1)) - toDouble(second(i, 1)));
        }
    }
    return differences;
}

}  // namespace

Array<double> pairedDifferences(const EngineData& first, const EngineData& second) {
    if (first.numbers() == nullptr || second.numbers() == nullptr) {
        return differencesOfCells(first.cells(), second.cells());
    }
    Array<double> differences(first.rows());
    Array<double> others(first.rows());
    first.read(1, differences.elements());
    second.read(1, others.elements());
    std::ranges::transform(differences.elements(), others.elements(), differences.elements().begin(),
                           [](double a, double b) { return throughSinglePrecisionText(a - b); });
    return differences;
}

}  // namespace TBVNonPara
