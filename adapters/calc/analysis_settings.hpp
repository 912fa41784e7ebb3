#pragma once

#include <string>

#include "adapters/calc/data_rows.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::calc {

/// What the user asked for.
struct AnalysisSettings {
    TBVNPMethod method = tbvNPMannU;
    TBVNPTails tails = tbvNPTwoTailed;
    bool headers = true;
    bool descriptives = false;
    bool ignoreTies = false;
    std::string firstRange;
    std::string secondRange;
    bool omitMissing = false;
    std::string outputCell;  ///< empty: a new sheet
    bool overWrite = false;
    bool visibleRowsOnly = false;
    std::string newSheetName;
};

/// Whether a test compares as many groups as there are.
[[nodiscard]] constexpr bool takesGroups(TBVNPMethod method) noexcept {
    return method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis;
}

[[nodiscard]] constexpr bool takesTwoRanges(TBVNPMethod method) noexcept {
    return method == tbvNPMannU || method == tbvNPWilcoxon || method == tbvNPSpearman || method == tbvNPSign;
}

/// How the rows of the settings' ranges belong together.
[[nodiscard]] inline RowRules rowRules(const AnalysisSettings& settings) noexcept {
    return rowRules(settings.method, settings.headers);
}

}  // namespace TBVNonPara::calc
