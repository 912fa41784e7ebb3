#pragma once

#include <optional>
#include <string>

#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/statistics/permutations.hpp"
#include "tbvnonpara/statistics/runs.hpp"

namespace TBVNonPara {

// P from random arrangements, where users ask for them.

/// A row with P in the last column; nothing without any.
void addSampled(DetailTable& table, std::string name, const std::optional<statistics::SampledTails>& sampled,
                TBVNPTails tails);
void addSampled(DetailTable& table, const std::optional<statistics::SampledUpper>& sampled);

/// Those of runs, whose first alternative is fewer, with this one in the place of `greater`.
[[nodiscard]] std::optional<statistics::SampledTails> fewerFirst(
    const std::optional<statistics::Runs::Sampled>& sampled);

/// How many arrangements there were, and how sure their P is; or that P was counted, so that none were drawn.
void noteSampled(DetailPage& page, const std::optional<statistics::SampledTails>& sampled, bool exact,
                 const Details& details);
void noteSampled(DetailPage& page, const std::optional<statistics::SampledUpper>& sampled, bool exact,
                 const Details& details);

}  // namespace TBVNonPara
