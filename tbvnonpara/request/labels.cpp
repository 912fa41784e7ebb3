#include "tbvnonpara/request/labels.hpp"

namespace TBVNonPara {

namespace {

/// The value of one cell.
CellValue valueOf(const RangeRef& cell) {
    return cell->GetValue()(1, 1);
}

std::string labelOf(const RangeRef& cell, bool headers) {
    return headers ? toText(valueOf(cell)) : columnName(cell);
}

}  // namespace

std::string columnName(const RangeRef& cell) {
    const std::string address = cell->GetAddressLocal();
    const std::size_t end = address.find('$', 1);
    if (end == std::string::npos) {
        raise(RuntimeError::InvalidProcedureCall);
    }
    return "Column " + address.substr(1, end - 1);
}

std::string label(const RangeRef& range, bool headers) {
    return labelOf(range->GetCells(1, 1), headers);
}

Labels pairLabels(const RangeRef& first, const RangeRef& second, bool headers) {
    Labels labels(2);
    labels(1) = label(first, headers);
    labels(2) = label(second, headers);
    return labels;
}

Labels groupLabels(const RangeRef& range, bool headers) {
    Labels labels(0);
    const Long areas = range->GetAreasCount();
    for (Long i = 1; i <= areas; ++i) {
        const RangeRef area = range->GetAreas(i);
        const Long columns = area->GetColumnsCount();
        for (Long column = 1; column <= columns; ++column) {
            labels.append(labelOf(area->GetCells(1, column), headers));
        }
    }
    return labels;
}

std::string rangeText(const RangeRef& range) {
    const std::string sheet = range->GetWorksheet()->GetName();
    return sheet + "!" + range->GetAddress();
}

}  // namespace TBVNonPara
