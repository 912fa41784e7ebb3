#include "tbvnonpara/reshaping/reshaped.hpp"

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

void settleMissing(const Column& column, const MissingCells& missing, const Wishes& wishes) {
    const std::size_t wrong = wishes.blanksAllowed ? missing.words : missing.count;
    if (wrong > 0 && !wishes.omitMissing) {
        refuseMissing(column, missing);
    }
}

void requireEqualRows(const Column& first, const Column& other) {
    const std::string rows = std::to_string(other.cells.size());
    if (first.cells.size() != other.cells.size()) {
        throw Refusal(tbvNPUnequalPairs,
                      nameOf(first) + " has " + counted(first.cells.size(), "row", "rows") + ", " +
                          nameOf(other) + ' ' + rows + "; rows belong together, so make them equally long.")
            .about(Reason::UnequalColumns,
                   {nameOf(first), std::to_string(first.cells.size()), nameOf(other), rows});
    }
}

void describeGroups(Reshaped& reshaped) {
    for (const Column& column : reshaped.columns) {
        if (column.cells.empty()) {
            throw Refusal(tbvNPNoData, "No value is left of " + nameOf(column) + '.')
                .about(Reason::NothingLeft, {nameOf(column)});
        }
        reshaped.account.groups.push_back({column.header, column.cells.size()});
    }
}

}  // namespace TBVNonPara::reshaping
