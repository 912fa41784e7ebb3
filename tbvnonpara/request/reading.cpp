#include "tbvnonpara/request/reading.hpp"

#include <utility>

namespace TBVNonPara {

namespace {

/// A range's first area, without its first row when that is a header.
RangeRef dataOf(const Application& application, const RangeRef& range, bool headers) {
    if (!headers) {
        return range;
    }
    const RangeRef first = range->GetCells(2, 1);
    const Long rows = range->GetRowsCount();
    const Long columns = range->GetColumnsCount();
    const RangeRef last = range->GetCells(rows, columns);
    return application.GetRange(first, last);
}

ValueGrid asCells(EngineInput input) {
    if (auto* numbers = std::get_if<NumberColumns>(&input)) {
        return EngineData(std::move(*numbers)).cells();
    }
    return std::get<ValueGrid>(std::move(input));
}

}  // namespace

ValueGrid readArea(const Application& application, const RangeRef& range, bool headers) {
    return dataOf(application, range, headers)->GetValue();
}

EngineInput readInput(const Application& application, const RangeRef& range, bool headers) {
    const RangeRef data = dataOf(application, range, headers);
    if (data->HoldsNumbers(1)) {
        return data->GetNumbers();
    }
    return data->GetValue();
}

EngineInput readInputs(const Application& application, const ArrayUtility& utility, const RangeRef& range,
                       bool headers) {
    EngineInput first = readInput(application, range, headers);
    const Long areas = range->GetAreasCount();
    if (areas == Long(1)) {
        return first;
    }
    ValueGrid values = asCells(std::move(first));
    for (Long i = 2; i <= areas; ++i) {
        values = utility.JoinColumns(values, readArea(application, range->GetAreas(i), headers));
    }
    return values;
}

}  // namespace TBVNonPara
