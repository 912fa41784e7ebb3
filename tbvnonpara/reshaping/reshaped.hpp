#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/account.hpp"
#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/reshaping/missing.hpp"

namespace TBVNonPara::reshaping {

/// What is asked of the data beside the columns.
struct Wishes {
    Unit unit = Unit::Value;
    std::size_t mostGroups = 2;       ///< 2, or as many as there are
    std::vector<std::string> groups;  ///< those to take, in this order; empty for all
    Missing missing;
    bool omitMissing = false;
    bool blanksAllowed = false;  ///< cells without a value are no missing ones, only words are
};

/// The columns that a test takes, one after the other.
struct Reshaped {
    std::vector<Column> columns;
    Account account;
};

/// Refuses missing values unless they are to be left out, or are blanks that may be there.
TBVNONPARA_API void settleMissing(const Column& column, const MissingCells& missing, const Wishes& wishes);

/// Refuses two columns of unequal length, whose rows belong together.
TBVNONPARA_API void requireEqualRows(const Column& first, const Column& other);

/// Names the columns as groups with their sizes; a column without a value is refused.
TBVNONPARA_API void describeGroups(Reshaped& reshaped);

}  // namespace TBVNonPara::reshaping
