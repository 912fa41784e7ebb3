#include "tbvnonpara/statistics/groups.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "tbvnonpara/ordering/ascending_order.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

std::vector<double> Groups::pooled() const {
    std::vector<double> all;
    all.reserve(total);
    for (const std::vector<double>& group : values) {
        all.insert(all.end(), group.begin(), group.end());
    }
    return all;
}

std::vector<std::size_t> Groups::sizes() const {
    std::vector<std::size_t> counts;
    for (const std::vector<double>& group : values) {
        counts.push_back(group.size());
    }
    return counts;
}

Groups groupsOf(SampleSpans samples, const Options& options) {
    Groups groups;
    for (std::size_t g = 0; g < samples.size(); ++g) {
        Sample sample = sampleOf(samples[g], "group " + std::to_string(g + 1), options);
        groups.missing += sample.missing;
        if (!sample.values.empty()) {
            sortAscending(sample.values);
            groups.total += sample.values.size();
            groups.values.push_back(std::move(sample.values));
            groups.original.push_back(g);
        }
    }
    if (groups.values.size() < 2) {
        throw std::invalid_argument("The test compares groups, and fewer than two have values.");
    }
    return groups;
}

std::optional<std::size_t> groupOfControl(const Groups& groups, std::optional<std::size_t> control) {
    if (!control) {
        return std::nullopt;
    }
    const auto found = std::ranges::find(groups.original, *control);
    if (found == groups.original.end()) {
        throw std::invalid_argument("The control is none of the groups that have values.");
    }
    return static_cast<std::size_t>(found - groups.original.begin());
}

}  // namespace TBVNonPara::statistics
