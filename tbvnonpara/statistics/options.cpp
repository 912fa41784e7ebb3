#include "tbvnonpara/statistics/options.hpp"

#include <stdexcept>

namespace TBVNonPara::statistics {

void checkOptions(const Options& options) {
    if (!(options.confidence >= 0.5 && options.confidence <= 0.999)) {
        throw std::invalid_argument("The level of the intervals must lie between 0.5 and 0.999.");
    }
}

}  // namespace TBVNonPara::statistics
