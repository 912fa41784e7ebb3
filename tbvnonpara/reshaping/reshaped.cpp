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
