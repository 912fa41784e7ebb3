#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/groups.hpp"

namespace TBVNonPara::reshaping {

/// What belongs together in the data of a test, and so is left out together.
enum class Unit {
    Value,    ///< of independent samples
    Pair,     ///< of two columns, row by row
    Block,    ///< of several columns, row by row
    Element,  ///< of a sequence, which may hold texts
};

/// What was left out of a table, and what remains.
struct Account {
    std::size_t rows = 0;         ///< of the table
    std::size_t unfulfilled = 0;  ///< rows that do not fulfil the conditions
    std::size_t otherGroups = 0;  ///< rows of groups that were not picked
    std::size_t unnamed = 0;      ///< rows that name no group or no block
    Unit unit = Unit::Value;
    std::size_t units = 0;      ///< values, pairs or blocks before the missing ones were left out
    std::size_t missing = 0;    ///< of these
    std::vector<Group> groups;  ///< what is compared, with the sizes that remain
};

/// "left out: 24 of 71 rows by the conditions, 37 of 153 pairs with missing values"; empty when nothing was.
[[nodiscard]] TBVNONPARA_API std::string leftOut(const Account& account);

/// "values", "pairs" or "blocks".
[[nodiscard]] TBVNONPARA_API std::string_view nameOf(Unit unit) noexcept;

}  // namespace TBVNonPara::reshaping
