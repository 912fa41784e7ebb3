#include "tbvnonpara/companion/own/data_check.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara {

namespace {

/// A sheet's name and a range's address as people write them: Data!B7.
std::string nameOf(const RangeRef& range) {
    const std::string sheet = range->GetWorksheet()->GetName();
    return sheet + "!" + withoutDollars(range->GetAddress());
}

std::string nameOf(const RangeRef& range, Long row, Long column) {
    return nameOf(range->GetCells(row, column));
}

std::string contents(const CellValue& value) {
    if (isEmpty(value)) {
        return "is blank";
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        constexpr std::size_t longest = 60;
        return "holds the text " + inQuotes(shortened(text->string(), longest));
    }
    return (std::holds_alternative<CellError>(value) ? "holds the error " : "holds ") + toText(value);
}

/// What is wrong with a cell that must be a number; nothing for a number or a text that reads as one.
std::optional<DataCheckErrors> faultAsNumber(const CellValue& value, bool blanksAllowed) {
    if (const auto* text = std::get_if<Text>(&value)) {
        return readAsNumber(text->string()) ? std::nullopt : std::optional(tbvNPTextInData);
    }
    if (std::holds_alternative<bool>(value)) {
        return tbvNPBooleanInData;
    }
    if (std::holds_alternative<CellError>(value)) {
        return tbvNPErrorInData;
    }
    return isEmpty(value) && !blanksAllowed ? std::optional(tbvNPBlankInData) : std::nullopt;
}

std::optional<DataCheckErrors> faultAsCategory(const CellValue& value) {
    return std::holds_alternative<CellError>(value) ? std::optional(tbvNPErrorInData) : std::nullopt;
}

/// The cells of a range below its header, area by area.
class DataCells {
 public:
    DataCells(const RangeRef& range, bool headers) : m_Range(range), m_FirstRow(headers ? 2 : 1) {
        const Long areas = range->GetAreasCount();
        for (Long area = 1; area <= areas; ++area) {
            m_Areas.push_back(read(range->GetAreas(area)));
        }
    }

    [[nodiscard]] Long rows() const { return m_Areas.front().rows - m_FirstRow + 1; }

    [[nodiscard]] Long count(const auto& matches) const {
        Long matching;
        for (const Area& area : m_Areas) {
            const CellValue anyNumber = 0.0;
            if (area.numbers && matches(anyNumber)) {
                matching += (area.rows - m_FirstRow + 1) * area.columns;
            }
        }
        walk([&](const Area&, Long, Long, const CellValue& value) {
            if (matches(value)) {
                ++matching;
            }
        });
        return matching;
    }

    void refuseWithoutData() const {
        if (count([](const CellValue& value) { return !isEmpty(value); }) == 0) {
            throw Error(tbvNPNoData, nameOf(m_Range) + " holds no data" +
                                         (m_FirstRow == 2 ? " below its header" : "") +
                                         "; choose a range with at least one value.");
        }
    }

    /// Raises the fault of the first cell that has one.
    void refuse(const auto& fault, std::string_view demand) const {
        walk([&](const Area& area, Long row, Long column, const CellValue& value) {
            if (const std::optional<DataCheckErrors> number = fault(value)) {
                throw Error(*number, nameOf(area.range, row, column) + ' ' + contents(value) +
                                         "; every cell " +
                                         (m_FirstRow == 2 ? "below the header" : "of the range") + ' ' +
                                         std::string(demand));
            }
        });
    }

 private:
    struct Area {
        RangeRef range;
        Long rows;
        Long columns;
        /// Whether there are numbers alone below the header: the host has looked at them.
        bool numbers;
        ValueGrid values;
    };

    [[nodiscard]] Area read(const RangeRef& range) const {
        if (range->HoldsNumbers(m_FirstRow)) {
            return {range, range->GetRowsCount(), range->GetColumnsCount(), true, {}};
        }
        ValueGrid values = range->GetValue();
        const Long rows = values.rows();
        const Long columns = values.columns();
        return {range, rows, columns, false, std::move(values)};
    }

    /// The cells that are not known to be numbers.
    void walk(const auto& visit) const {
        for (const Area& area : m_Areas) {
            for (Long column = 1; !area.numbers && column <= area.columns; ++column) {
                for (Long row = m_FirstRow; row <= area.rows; ++row) {
                    visit(area, row, column, area.values(row, column));
                }
            }
        }
    }

    RangeRef m_Range;
    Long m_FirstRow;
    std::vector<Area> m_Areas;
};

/// Where a cell stands on its sheet, from its address: $C$7 is row 7, column 3.
CellPlace placeOnSheet(const RangeRef& cell) {
    return placeOf(withoutDollars(cell->GetAddress())).value_or(CellPlace());
}

void refuseOffSheet(const RangeRef& first, Long columns, Long rows) {
    const RangeRef sheet = first->GetWorksheet()->GetCells();
    const CellPlace place = placeOnSheet(first);
    if (Long(place.row) + rows - 1 > sheet->GetRowsCount() ||
        Long(place.column) + columns - 1 > sheet->GetColumnsCount()) {
        throw Error(tbvNPOutputOffSheet, "The report needs " + toText(rows) + " rows and " + toText(columns) +
                                             " columns and does not fit on the sheet from " + nameOf(first) +
                                             "; choose a cell further up or to the left.");
    }
}

void refuseOccupied(const RangeRef& first, Long columns, Long rows) {
    const RangeRef last = first->GetCells(rows, columns);
    const RangeRef area = first->GetWorksheet()->GetRange(first, last);
    const ValueGrid values = area->GetValue();
    for (Long column = 1; column <= columns; ++column) {
        for (Long row = 1; row <= rows; ++row) {
            if (!isEmpty(values(row, column))) {
                throw Error(tbvNPOutputOccupied, nameOf(area, row, column) +
                                                     " holds a value and the report needs " + nameOf(area) +
                                                     "; clear these cells, choose another place or allow "
                                                     "overwriting.");
            }
        }
    }
}

class CellByCellCheck : public DataCheck {
 public:
    void CheckData(const RangeRef& range, bool headers, Long& first, Long& second, Long& third,
                   bool& flag) const override {
        const DataCells cells(range, headers);
        cells.refuseWithoutData();
        cells.refuse([&](const CellValue& value) { return faultAsNumber(value, flag); }, "must be a number.");
        first = cells.rows();
        third = cells.count(isEmpty);
        second = cells.count([](const CellValue& value) { return !isEmpty(value); });
        flag = third > 0;
    }

    void CheckXData(const RangeRef& range, bool headers, Long& first, Long& second,
                    Long& third) const override {
        bool blanks = false;
        CheckData(range, headers, first, second, third, blanks);
    }

    void CheckRunsData(const RangeRef& range, bool headers) const override {
        const DataCells cells(range, headers);
        cells.refuseWithoutData();
        cells.refuse(faultAsCategory, "must be free of errors.");
    }

    void CheckOutputArea(const RangeRef& range, Long columns, Long rows, bool overwrite) const override {
        const RangeRef first = range->GetCells(1, 1);
        refuseOffSheet(first, columns, rows);
        if (!overwrite) {
            refuseOccupied(first, columns, rows);
        }
    }
};

}  // namespace

ObjectRef<DataCheck> createDataCheck() {
    return makeObject<CellByCellCheck>();
}

}  // namespace TBVNonPara
