#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// An address as the library writes it into a report, and the one that the report shall show there.
struct ShownAddress {
    std::string written;
    std::string shown;
};

/// The ranges of a run, as addresses with the sheet's name.
struct ChosenRanges {
    std::string y;
    std::string x;  ///< empty for none
    bool headers = false;
    /// What was chosen without the user; empty when the choices left nothing open.
    std::string note;
    std::vector<ShownAddress> shown = {};  ///< of `y` and `x`, where they are not what the user knows
    std::string by = {};                   ///< the groups of `y`, row by row; empty for none
    std::string block = {};                ///< what its values belong to, row by row; empty for none
};

/// Turns what the user says about columns into addresses on the active sheet:
///
/// - an address is, in this order: the header of a column, the letters of a column, an address of cells;
///   for several groups a list of these, joined by commas. A header that is also the letters of another
///   column with data is refused;
/// - without addresses the columns that hold data are taken in order, without a first one that alone has no
///   header: it holds row names;
/// - whole columns begin with the sheet's first row of data. Independent samples and sequences end with their
///   own last value, pairs too (so that unequal ones show); blocks, groups and signs end together;
/// - a first row of texts counts as headers; in a sequence not when the text occurs again below;
/// - with a column of groups, `y` is one column, and both end together with the column of blocks. Without `y`
///   it is the only other column that holds numbers.
///
/// Raises an error whose description says what to write instead.
[[nodiscard]] TBVNONPARA_API ChosenRanges chooseRanges(const workbook::EmbeddedApplication& application,
                                                       const Choices& choices);

}  // namespace TBVNonPara::analysis
