#include "adapters/calc/column_widths.hpp"

#include <algorithm>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSheetOperation.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <iterator>
#include <set>

#include "tbvnonpara/host/Workbook.hpp"

namespace TBVNonPara::calc {

namespace {

namespace Flags = css::sheet::CellFlags;
using css::uno::Any;
using css::uno::Sequence;
using Columns = Reference<css::container::XIndexAccess>;

/// In hundredths of a millimetre: a longer label is cut, as the report would not fit on a screen otherwise.
constexpr std::int32_t widest = 12'000;

Reference<css::table::XCellRange> cellsIn(const SheetRef& sheet, const CellArea& area) {
    return sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom);
}

Columns columnsUnder(const Reference<css::table::XCellRange>& cells) {
    return query<css::container::XIndexAccess>(query<css::table::XColumnRowRange>(cells)->getColumns());
}

std::int32_t widthOf(const Columns& columns, std::int32_t position) {
    std::int32_t width = 0;
    property(Reference<css::beans::XPropertySet>(columns->getByIndex(position), css::uno::UNO_QUERY_THROW),
             "Width") >>= width;
    return width;
}

/// The rows of a report that are measured: all of a short one; of a long one its ends and, between them, the
/// largest and the smallest number of each column.
std::set<std::int32_t> rowsToMeasure(const Sequence<Sequence<Any>>& cells) {
    constexpr std::int32_t end = 200;
    const std::int32_t rows = cells.getLength();
    std::set<std::int32_t> measured;
    for (std::int32_t row = 0; row < std::min(rows, end); ++row) {
        measured.insert({row, rows - 1 - row});
    }
    for (std::int32_t column = 0; column < cells[0].getLength(); ++column) {
        std::int32_t largest = 0;
        std::int32_t smallest = 0;
        const auto number = [&](std::int32_t row) {
            double value = 0;
            cells[row][column] >>= value;
            return value;
        };
        for (std::int32_t row = 1; row < rows; ++row) {
            largest = number(row) > number(largest) ? row : largest;
            smallest = number(row) < number(smallest) ? row : smallest;
        }
        measured.insert({largest, smallest});
    }
    return measured;
}

/// A text alone in its line may run over the empty cells beside it.
bool isLineOfText(const Sequence<Any>& row) {
    const auto isFilled = [](const Any& cell) {
        return cell.getValueTypeClass() != css::uno::TypeClass_STRING ||
               !static_cast<const OUString*>(cell.getValue())->isEmpty();
    };
    return row[0].getValueTypeClass() == css::uno::TypeClass_STRING &&
           std::none_of(row.begin() + 1, row.end(), isFilled);
}

/// The rows of a report to measure that are no lines of text.
std::vector<std::int32_t> rowsWithColumns(const SheetAreas& report) {
    const auto cells =
        query<css::sheet::XCellRangeData>(cellsIn(report.sheet, report.areas.front()))->getDataArray();
    std::vector<std::int32_t> rows;
    std::ranges::copy_if(rowsToMeasure(cells), std::back_inserter(rows),
                         [&](std::int32_t row) { return !isLineOfText(cells[row]); });
    return rows;
}

/// A sheet in the scratch workbook that is there while this lives.
class MeasuringSheet {
 public:
    MeasuringSheet(const DocumentRef& scratch, std::int32_t columns)
        : m_Document(scratch), m_Columns(columns) {
        sheetsOf(m_Document)->insertNewByName(name(), 1);
        m_Sheet = sheetNamed(m_Document, name());
    }
    ~MeasuringSheet() {
        try {
            sheetsOf(m_Document)->removeByName(name());
        } catch (const css::uno::Exception&) {
            // The document was closed in the meantime, and the sheet with it.
        }
    }
    MeasuringSheet(const MeasuringSheet&) = delete;
    MeasuringSheet& operator=(const MeasuringSheet&) = delete;

    /// Rows of a report in the same workbook.
    void copy(const SheetAreas& report) {
        const CellArea& area = report.areas.front();
        for (const std::int32_t row : rowsWithColumns(report)) {
            query<css::sheet::XCellRangeMovement>(m_Sheet)->copyRange(
                {positionOf(m_Sheet), 0, m_Rows},
                {positionOf(report.sheet), area.left, area.top + row, area.right, area.top + row});
            m_Rows += 1;
        }
    }

    /// What rows of another workbook show, in the bold letters that headings may have.
    void show(const SheetAreas& block) {
        const CellArea& area = block.areas.front();
        for (const std::int32_t row : rowsWithColumns(block)) {
            for (std::int32_t column = 0; column < m_Columns; ++column) {
                const auto cell = block.sheet->getCellByPosition(area.left + column, area.top + row);
                query<css::text::XTextRange>(m_Sheet->getCellByPosition(column, m_Rows))
                    ->setString(query<css::text::XTextRange>(cell)->getString());
            }
            m_Rows += 1;
        }
        setProperty(this->block(), "CharWeight", css::awt::FontWeight::BOLD);
    }

    /// What the columns need for all that is on the sheet.
    [[nodiscard]] std::vector<std::int32_t> widths() const {
        const Columns columns = columnsUnder(block());
        setProperty(columns, "OptimalWidth", true);
        std::vector<std::int32_t> widths;
        widths.reserve(static_cast<std::size_t>(columns->getCount()));
        for (std::int32_t column = 0; column < columns->getCount(); ++column) {
            widths.push_back(std::min(widest, widthOf(columns, column)));
        }
        return widths;
    }

    void removeTexts() const { query<css::sheet::XSheetOperation>(block())->clearContents(Flags::STRING); }

 private:
    static OUString name() { return "Widths"; }
    [[nodiscard]] Reference<css::table::XCellRange> block() const {
        return cellsIn(m_Sheet, {0, 0, m_Columns - 1, std::max(0, m_Rows - 1)});
    }

    DocumentRef m_Document;
    std::int32_t m_Columns;
    SheetRef m_Sheet;
    std::int32_t m_Rows = 0;
};

/// Makes a column as wide as is wanted, unless it is so already.
void widen(const Columns& columns, std::int32_t position, std::int32_t wanted) {
    if (wanted > widthOf(columns, position)) {
        const Reference<css::beans::XPropertySet> widened(columns->getByIndex(position),
                                                          css::uno::UNO_QUERY_THROW);
        widened->setPropertyValue("Width", Any(wanted));
    }
}

bool standsAloneIn(const SheetRef& sheet, const CellArea& column, const CellArea& block) {
    constexpr auto anything =
        static_cast<sal_Int16>(Flags::VALUE | Flags::DATETIME | Flags::STRING | Flags::FORMULA);
    const auto filled =
        given(query<css::sheet::XCellRangesQuery>(cellsIn(sheet, column))->queryContentCells(anything));
    const auto addresses = filled->getRangeAddresses();
    return std::all_of(addresses.begin(), addresses.end(), [&](const css::table::CellRangeAddress& address) {
        return block.contains(normalised(address));
    });
}

}  // namespace

void widenColumns(const SheetAreas& report, const SheetAreas& target, const CellArea& block) {
    MeasuringSheet measure(report.document, block.columns());
    measure.copy(report);
    const std::vector<std::int32_t> forAll = measure.widths();
    measure.removeTexts();
    const std::vector<std::int32_t> forNumbers = measure.widths();

    const Columns columns = columnsUnder(query<css::table::XCellRange>(target.sheet));
    const std::int32_t lastRow =
        given(query<css::table::XColumnRowRange>(target.sheet)->getRows())->getCount() - 1;
    for (std::int32_t column = block.left; column <= block.right; ++column) {
        const auto place = static_cast<std::size_t>(column - block.left);
        const bool alone = standsAloneIn(target.sheet, {column, 0, column, lastRow}, block);
        widen(columns, column, alone ? forAll[place] : forNumbers[place]);
    }
}

void widenColumns(const Context& context, const SheetAreas& block) {
    const CellArea& area = block.areas.front();
    MeasuringSheet measure(documentNamed(context, scratchWorkbookName), area.columns());
    measure.show(block);
    const std::vector<std::int32_t> widths = measure.widths();
    const Columns columns = columnsUnder(query<css::table::XCellRange>(block.sheet));
    for (std::int32_t column = area.left; column <= area.right; ++column) {
        widen(columns, column, widths[static_cast<std::size_t>(column - area.left)]);
    }
}

}  // namespace TBVNonPara::calc
