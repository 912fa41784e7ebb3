#include "tbvnonpara/statistics/differences.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara::statistics {

std::vector<double> cleanedDifferences(std::span<const double> first, std::span<const double> second) {
    std::vector<double> differences(first.size());
    std::ranges::transform(first, second, differences.begin(), [](double a, double b) {
        const double difference = a - b;
        const bool inSinglePrecision = std::abs(difference) < std::numeric_limits<float>::max();
        return inSinglePrecision ? throughSinglePrecisionText(difference) : difference;
    });
    return differences;
}

}  // namespace TBVNonPara::statistics
