#include "tbvnonpara/analysis/reshaped_ranges.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/analysis/row_conditions.hpp"
#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/reshaping/long_table.hpp"
#include "tbvnonpara/reshaping/wide_table.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::analysis {

namespace {

using reshaping::Column;
using reshaping::Unit;
using workbook::EmbeddedApplication;
using workbook::SheetRange;

bool isSequenceOfCategories(const Choices& choices, const ChosenRanges& chosen) {
    const DataShape shape = choices.test->shape;
    const bool codes = shape == DataShape::CodesOrPairs && chosen.x.empty() && chosen.by.empty();
    return (shape == DataShape::Sequence && !choices.cut) || codes;
}

/// A range of the user's, as long as it is looked at.
class UserRange {
 public:
    UserRange(const EmbeddedApplication& application, const std::string& address)
        : m_Held(application.GetRange(address)) {}

    [[nodiscard]] const SheetRange& operator*() const { return workbook::ownRange(m_Held); }
    [[nodiscard]] const SheetRange* operator->() const { return &**this; }

 private:
    RangeRef m_Held;
};

Index columnsAt(const EmbeddedApplication& application, const std::string& address) {
    Index columns = 0;
    if (!address.empty()) {
        const UserRange range(application, address);
        for (const Rectangle& area : range->areas()) {
            columns += area.columns();
        }
    }
    return columns;
}

/// What the cells of an area hold beside numbers.
struct Kinds {
    bool numbers = false;
    bool others = false;  ///< texts that read as no number, or #N/A
};

Kinds kindsIn(const EmbeddedApplication& application, const std::string& address, bool headers) {
    Kinds kinds;
    if (address.empty()) {
        return kinds;
    }
    const UserRange range(application, address);
    for (const Rectangle& area : range->areas()) {
        const Rectangle data{area.top + (headers ? 1 : 0), area.left, area.bottom, area.right};
        range->sheet()->values().visit(data, [&](Index, Index, const CellValue& value) {
            const auto* const text = std::get_if<Text>(&value);
            const auto* const error = std::get_if<CellError>(&value);
            kinds.numbers = kinds.numbers || std::holds_alternative<double>(value);
            kinds.others = kinds.others || (text != nullptr && !readAsNumber(text->string())) ||
                           (error != nullptr && *error == CellError::NotAvailable);
        });
    }
    return kinds;
}

reshaping::Wishes wishesOf(const Choices& choices, const ChosenRanges& chosen) {
    reshaping::Wishes wishes;
    const DataShape shape = choices.test->shape;
    if (shape == DataShape::Blocks) {
        wishes.unit = Unit::Block;
    } else if (isSequenceOfCategories(choices, chosen)) {
        wishes.unit = Unit::Element;
    } else if (takesRows(shape)) {
        wishes.unit = Unit::Pair;
    }
    if (takesManyColumns(shape)) {
        wishes.mostGroups = static_cast<std::size_t>(sheetColumns);
    }
    wishes.groups = choices.groups;
    wishes.missing = reshaping::Missing(choices.missingWords);
    wishes.omitMissing = choices.omitMissing;
    wishes.blanksAllowed = chosen.by.empty() && (shape == DataShape::Groups || wishes.unit == Unit::Element);
    return wishes;
}

/// The one column at an address.
Column columnAt(const EmbeddedApplication& application, const std::string& address, bool headers) {
    const UserRange range(application, address);
    return tableColumn(*range->sheet(), range->areas().front(), headers);
}

void addColumns(const EmbeddedApplication& application, const std::string& address, bool headers,
                std::vector<Column>& columns) {
    if (address.empty()) {
        return;
    }
    const UserRange range(application, address);
    for (const Rectangle& area : range->areas()) {
        for (Index number = area.left; number <= area.right; ++number) {
            columns.push_back(tableColumn(*range->sheet(), {area.top, number, area.bottom, number}, headers));
        }
    }
}

RowConditions conditionsOn(const EmbeddedApplication& application, const Choices& choices,
                           const ChosenRanges& chosen) {
    const UserRange range(application, chosen.y);
    return {application, choices, *range->sheet(), chosen.headers};
}

reshaping::Reshaped fromLongTable(const EmbeddedApplication& application, const Choices& choices,
                                  const ChosenRanges& chosen) {
    reshaping::LongTable table{columnAt(application, chosen.y, chosen.headers),
                               columnAt(application, chosen.by, chosen.headers), std::nullopt};
    if (!chosen.block.empty()) {
        table.blocks = columnAt(application, chosen.block, chosen.headers);
    }
    const RowConditions conditions = conditionsOn(application, choices, chosen);
    const std::size_t unfulfilled = conditions.apply(table.values);
    static_cast<void>(conditions.apply(table.groups));
    if (table.blocks) {
        static_cast<void>(conditions.apply(*table.blocks));
    }
    reshaping::Reshaped reshaped = reshaping::fromLong(std::move(table), wishesOf(choices, chosen));
    reshaped.account.rows += unfulfilled;
    reshaped.account.unfulfilled = unfulfilled;
    return reshaped;
}

reshaping::Reshaped fromWideTable(const EmbeddedApplication& application, const Choices& choices,
                                  const ChosenRanges& chosen) {
    std::vector<Column> columns;
    addColumns(application, chosen.y, chosen.headers, columns);
    addColumns(application, chosen.x, chosen.headers, columns);
    const RowConditions conditions = conditionsOn(application, choices, chosen);
    std::size_t unfulfilled = 0;
    for (Column& column : columns) {
        unfulfilled = std::max(unfulfilled, conditions.apply(column));
    }
    reshaping::Reshaped reshaped = reshaping::fromWide(std::move(columns), wishesOf(choices, chosen));
    reshaped.account.rows += unfulfilled;
    reshaped.account.unfulfilled = unfulfilled;
    return reshaped;
}

}  // namespace

Rectangle ReshapedRanges::cellsOf(const std::vector<Column>& columns, Index left, Index right) const {
    std::size_t rows = 0;
    for (Index column = left; column <= right; ++column) {
        rows = std::max(rows, columns[static_cast<std::size_t>(column) - 1].cells.size());
    }
    return {1, left, static_cast<Index>(rows) + (m_Ranges.headers ? 1 : 0), right};
}

bool needsReshaping(const EmbeddedApplication& application, const Choices& choices,
                    const ChosenRanges& chosen) {
    if (!chosen.by.empty() || !choices.where.empty() || choices.omitMissing ||
        !choices.missingWords.empty()) {
        return true;
    }
    const Kinds y = kindsIn(application, chosen.y, chosen.headers);
    const Kinds x = kindsIn(application, chosen.x, chosen.headers);
    if (!isSequenceOfCategories(choices, chosen)) {
        return y.others || x.others;
    }
    return y.numbers && y.others &&
           reshaping::holdsNumbers(columnAt(application, chosen.y, chosen.headers), reshaping::Missing());
}

ReshapedRanges::ReshapedRanges(const EmbeddedApplication& application, const Choices& choices,
                               const ChosenRanges& chosen)
    : m_Sheet(application, "Reshaped") {
    const bool isLong = !chosen.by.empty();
    reshaping::Reshaped reshaped =
        isLong ? fromLongTable(application, choices, chosen) : fromWideTable(application, choices, chosen);
    m_Account = std::move(reshaped.account);
    m_Ranges.headers = isLong || chosen.headers;
    const std::vector<Column>& columns = reshaped.columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& header = columns[i].header;
        const auto label =
            m_Ranges.headers ? std::optional(header.empty() ? CellValue() : Text(header)) : std::nullopt;
        m_Sheet.put(static_cast<Index>(i) + 1, label, columns[i].cells);
    }
    const Index xColumns =
        isLong ? (takesManyColumns(choices.test->shape) ? 0 : 1) : columnsAt(application, chosen.x);
    const Index yColumns = static_cast<Index>(columns.size()) - xColumns;
    const Rectangle y = cellsOf(columns, 1, yColumns);
    m_Ranges.y = m_Sheet.address(y);
    m_Ranges.shown.push_back(m_Sheet.shownAs(y, *UserRange(application, chosen.y)));
    if (xColumns > 0) {
        const Rectangle x = cellsOf(columns, yColumns + 1, yColumns + xColumns);
        m_Ranges.x = m_Sheet.address(x);
        m_Ranges.shown.push_back(m_Sheet.shownAs(x, *UserRange(application, isLong ? chosen.y : chosen.x)));
    }
}

}  // namespace TBVNonPara::analysis
