#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/analysis/table_summary.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::analysis {

/// A test that the shape of a table suggests, with its columns as `Choices` take them.
struct SuggestedTest {
    TBVNPMethod method = tbvNPMannU;
    std::string y;
    std::string x;
    std::string by;
    std::string block;
    bool omitMissing = false;  ///< values are missing in its columns
    bool cut = false;          ///< a sequence of numbers
};

/// Tests that a table is fit for: groups in one column, in blocks where each comes once with every group; two
/// columns of numbers; a sequence. At most one for each shape of data.
[[nodiscard]] TBVNONPARA_API std::vector<SuggestedTest> suggestedTests(const workbook::Sheet& sheet,
                                                                       const TableSummary& table,
                                                                       const Choices& choices);

}  // namespace TBVNonPara::analysis
