#include "tbvnonpara/statistics/sample.hpp"

#include <cmath>
#include <stdexcept>
#include <string>

namespace TBVNonPara::statistics {

namespace {

[[noreturn]] void refuseValue(double value, std::string_view name, std::size_t position) {
    const std::string what = std::isnan(value) ? "is not a number" : "is infinite";
    throw std::invalid_argument("Value " + std::to_string(position + 1) + " of " + std::string(name) + ' ' +
                                what + '.');
}

/// Whether the value is one to leave out. Throws where it can neither count nor be left out.
bool leavesOut(double value, std::string_view name, std::size_t position, const Options& options) {
    if (std::isfinite(value)) {
        return false;
    }
    if (std::isnan(value) && options.missing == Missing::Omit) {
        return true;
    }
    refuseValue(value, name, position);
}

}  // namespace

Sample sampleOf(std::span<const double> values, std::string_view name, const Options& options) {
    Sample sample;
    sample.values.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (leavesOut(values[i], name, i, options)) {
            sample.missing += 1;
        } else {
            sample.values.push_back(values[i]);
        }
    }
    return sample;
}

Pairs pairsOf(std::span<const double> first, std::span<const double> second, const Options& options) {
    if (first.size() != second.size()) {
        throw std::invalid_argument("Pairs need two variables of one length; these have " +
                                    std::to_string(first.size()) + " and " + std::to_string(second.size()) +
                                    " values.");
    }
    Pairs pairs;
    for (std::size_t i = 0; i < first.size(); ++i) {
        const bool firstMissing = leavesOut(first[i], "the first variable", i, options);
        if (leavesOut(second[i], "the second variable", i, options) || firstMissing) {
            pairs.missing += 1;
        } else {
            pairs.first.push_back(first[i]);
            pairs.second.push_back(second[i]);
        }
    }
    return pairs;
}

}  // namespace TBVNonPara::statistics
