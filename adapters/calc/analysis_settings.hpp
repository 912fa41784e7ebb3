#pragma once

#include <string>
#include <vector>

#include "adapters/calc/data_rows.hpp"
#include "adapters/calc/detail_settings.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::calc {

/// What the user asked for.
struct AnalysisSettings {
    TBVNPMethod method = tbvNPMannU;
    TBVNPTails tails = tbvNPTwoTailed;
    bool headers = true;
    bool descriptives = false;
    bool ignoreTies = false;
    bool liveFigures = false;  ///< the test's figures as formulas, as far as there are such
    std::string firstRange;
    std::string secondRange;
    bool groupsInOneColumn = false;
    std::string groupRange;
    std::string blockRange;
    std::vector<std::string> groups;  ///< those that are compared, in their order; empty for all
    bool omitMissing = false;
    std::string outputCell;  ///< empty: a new sheet
    bool overWrite = false;
    bool visibleRowsOnly = false;
    std::string newSheetName;
    std::string replacedReport;  ///< the cells of the report whose place this one takes; empty for none
    DetailSettings details;

    friend bool operator==(const AnalysisSettings&, const AnalysisSettings&) = default;
};

/// Whether a test compares as many groups as there are.
[[nodiscard]] constexpr bool takesGroups(TBVNPMethod method) noexcept {
    return method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis;
}

[[nodiscard]] constexpr bool takesTwoRanges(TBVNPMethod method) noexcept {
    return method == tbvNPMannU || method == tbvNPWilcoxon || method == tbvNPSpearman || method == tbvNPSign;
}

/// Whether a test can take its groups out of one column: the order of a sequence has none.
[[nodiscard]] constexpr bool takesLongTable(TBVNPMethod method) noexcept {
    return method != tbvNPWWRuns;
}

/// Whether a test compares values that belong together.
[[nodiscard]] inline bool takesBlocks(TBVNPMethod method) noexcept {
    return rowRules(method, false).paired;
}

/// How the rows of the settings' ranges belong together: those of a table in long form always do.
[[nodiscard]] inline RowRules rowRules(const AnalysisSettings& settings) noexcept {
    return {settings.headers, settings.groupsInOneColumn || takesBlocks(settings.method)};
}

}  // namespace TBVNonPara::calc
