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
    double confidence = 0.95;  ///< level of the intervals, 0.5 to 0.999
    statistics::Adjustment adjustment = statistics::Adjustment::Holm;  ///< of P of several comparisons
    bool trend = false;            ///< also whether values rise from group to group
    std::string control;           ///< the label of the one group to compare with; empty for all pairs
    std::size_t permutations = 0;  ///< random arrangements where nothing can be counted; 0 for none
    std::uint64_t seed = 1;        ///< of these
};

/// The result of any of the eight tests.
using TestInFull =
    std::variant<statistics::MannWhitney, statistics::Wilcoxon, statistics::Spearman, statistics::Sign,
                 statistics::Runs, statistics::Median, statistics::KruskalWallis, statistics::Friedman>;

/// A test in full, and what is needed to tell about it: what detailsOf() makes and writers take.
struct Details {
    const OfferedTest* test = nullptr;  ///< one of offeredTests()
    TBVNPTails tails = tbvNPTwoTailed;  ///< the alternative that the words and P are for
    DetailChoices choices;              ///< as they were given
    std::vector<std::string>
        labels;            ///< of the variables or the groups with values; the categories of a sequence
    TestInFull result;     ///< of the numbers, rows with missing values left out
    double reportedP = 0;  ///< what the report shows
};

/// The details of a test that an engine has run on columns: two variables, one column of codes or of a
/// sequence, or a column for each group. Blank cells are missing, and so are texts that are no
/// numbers.
///
///     const auto columns = analysis::columnsAt(*application, "Data!A1:B11", true);
///     const OfferedTest& test = offeredTests().front();
///     const Details details = detailsOf(test, tbvNPTwoTailed, {}, columns, request.engine());
///
/// Raises Error (tbvNPBadYRange) where there is no such control, and std::invalid_argument, which says why,
/// where the columns have no details. The watch is told how far long counts are, and may end them. O(n log n)
/// and an exact count of some seconds at most, or random arrangements.
[[nodiscard]] TBVNONPARA_API Details detailsOf(const OfferedTest& test, TBVNPTails tails,
                                               const DetailChoices& chosen,
                                               const std::vector<LabelledColumn>& columns,
                                               const clsNonParaBO& engine, CountWatch watch = {});

}  // namespace TBVNonPara
