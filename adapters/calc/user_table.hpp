#pragma once

#include "adapters/calc/analysis_settings.hpp"
#include "tbvnonpara/reshaping/reshaped.hpp"

namespace TBVNonPara::calc {

/// A range of the user's and the rows of its areas that take part; all of them where none are named.
struct TableRange {
    SheetAreas cells;
    std::vector<KeptRowsRef> rows;
};

/// The ranges of an analysis; without areas where the settings name none.
struct UserTable {
    TableRange first;
    TableRange second;
    TableRange groups;
    TableRange blocks;
};

/// Finds the ranges of the settings. Where `rows` are given they name the rows that take part, once they are
/// counted. Raises the library's error for an address that is none.
[[nodiscard]] UserTable findTable(const DocumentRef& document, const AnalysisSettings& settings,
                                  DataRows* rows);

/// Reads the ranges and makes the columns of the test out of them. Raises a `reshaping::Refusal`.
[[nodiscard]] reshaping::Reshaped reshape(const UserTable& table, const AnalysisSettings& settings);

/// The groups that the group range names, in the order in which they come first, with their rows; none where
/// it is no range yet, or names more groups than anyone could tick.
[[nodiscard]] std::vector<reshaping::Group> groupsNamed(const DocumentRef& document,
                                                        const AnalysisSettings& settings);

/// What would be left out if missing values were; nothing where the ranges are none yet or cannot be read.
[[nodiscard]] reshaping::Account countMissing(const DocumentRef& document, AnalysisSettings settings);

}  // namespace TBVNonPara::calc
