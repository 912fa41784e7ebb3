#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/labelled_column.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/request/tests_offered.hpp"
#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/median.hpp"
#include "tbvnonpara/statistics/runs.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"

namespace TBVNonPara {

/// What a user may choose about the details.
struct DetailChoices {
    double confidence = 0.95;
    statistics::Adjustment adjustment = statistics::Adjustment::Holm;
    bool trend = false;            ///< also whether values rise from group to group
    std::string control;           ///< the label of the one group to compare with; empty for all pairs
    std::size_t permutations = 0;  ///< random arrangements where nothing can be counted; 0 for none
    std::uint64_t seed = 1;        ///< of these
};

using TestInFull =
    std::variant<statistics::MannWhitney, statistics::Wilcoxon, statistics::Spearman, statistics::Sign,
                 statistics::Runs, statistics::Median, statistics::KruskalWallis, statistics::Friedman>;

/// A test in full, and what is needed to tell about it.
struct Details {
    const OfferedTest* test = nullptr;
    TBVNPTails tails = tbvNPTwoTailed;
    DetailChoices choices;
    std::vector<std::string>
        labels;  ///< of the variables or the groups with values; the categories of a sequence
    TestInFull result;
    double reportedP = 0;  ///< what the report shows
};

/// Raises an error where there is no such control, or where the columns have no details:
/// std::invalid_argument says why. The watch is told how far long counts are, and may end them.
[[nodiscard]] TBVNONPARA_API Details detailsOf(const OfferedTest& test, TBVNPTails tails,
                                               const DetailChoices& chosen,
                                               const std::vector<LabelledColumn>& columns,
                                               const clsNonParaBO& engine, CountWatch watch = {});

}  // namespace TBVNonPara
