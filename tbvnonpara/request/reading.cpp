#include "tbvnonpara/request/reading.hpp"

namespace TBVNonPara {

ValueGrid readArea(const Application& application, const RangeRef& range, bool headers) {
    if (!headers) {
        return range->GetValue();
    }
    const RangeRef first = range->GetCells(2, 1);
    const Long rows = range->GetRowsCount();
    const Long columns = range->GetColumnsCount();
    const RangeRef last = range->GetCells(rows, columns);
    return application.GetRange(first, last)->GetValue();
}

ValueGrid readAreas(const Application& application, const ArrayUtility& utility, const RangeRef& range,
                    bool headers) {
    ValueGrid values = readArea(application, range, headers);
    const Long areas = range->GetAreasCount();
    for (Long i = 2; i <= areas; ++i) {
        values = utility.JoinColumns(values, readArea(application, range->GetAreas(i), headers));
    }
    return values;
}

}  // namespace TBVNonPara
