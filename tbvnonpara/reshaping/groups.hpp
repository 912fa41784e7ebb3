#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/reshaping/missing.hpp"

namespace TBVNonPara::reshaping {

struct Group {
    std::string name;  ///< a number as its text, TRUE and FALSE as sheets show them
    std::size_t size = 0;
};

/// The values of a column by which the rows of a table are told apart.
struct Groups {
    static constexpr std::int32_t none = -1;

    std::vector<Group> groups;         ///< as they come first, or as they were picked
    std::vector<std::int32_t> ofCell;  ///< each cell's group, or `none`
    std::size_t missing = 0;           ///< cells that name no group
    std::size_t others = 0;            ///< cells of groups that were not picked
};

/// The groups of a column, numbers and texts alike, blanks around a text apart.
[[nodiscard]] TBVNONPARA_API Groups groupsIn(const Column& column, const Missing& missing);

/// The groups that are picked, in this order; all of them for an empty list. Raises a Refusal that lists the
/// groups and their sizes for a name that is none of them or that comes twice.
[[nodiscard]] TBVNONPARA_API Groups pickGroups(Groups groups, const std::vector<std::string>& names,
                                               const Column& column);

/// "casein (12), linseed (12)", the first two dozen.
[[nodiscard]] TBVNONPARA_API std::string sizesOf(const std::vector<Group>& groups);

/// The values of each group, under its name. As many groups as cells of the column.
[[nodiscard]] TBVNONPARA_API std::vector<Column> splitByGroup(const Column& values, const Groups& groups);

}  // namespace TBVNonPara::reshaping
