#include "tbvnonpara/engine/paired_differences.hpp"

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

}  // namespace

Array<double> pairedDifferences(const ValueGrid& first, const ValueGrid& second) {
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

}  // namespace TBVNonPara
