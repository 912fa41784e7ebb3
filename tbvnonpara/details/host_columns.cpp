#include "tbvnonpara/details/host_columns.hpp"

#include "tbvnonpara/request/labels.hpp"
#include "tbvnonpara/request/reading.hpp"

namespace TBVNonPara {

std::vector<LabelledColumn> columnsIn(const Application& application, const RangeRef& range, bool headers) {
    const Labels labels = groupLabels(range, headers);
    std::vector<LabelledColumn> columns;
    const Long areas = range->GetAreasCount();
    for (Long i = 1; i <= areas; ++i) {
        const ValueGrid values = readArea(application, range->GetAreas(i), headers);
        for (Index column = 1; column <= values.columns(); ++column) {
            const auto cells = values.column(column);
            const Long number = Long(static_cast<std::int64_t>(columns.size()) + 1);
            columns.push_back({labels(number), {cells.begin(), cells.end()}});
        }
    }
    return columns;
}

}  // namespace TBVNonPara
