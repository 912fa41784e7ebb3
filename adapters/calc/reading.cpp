#include "adapters/calc/reading.hpp"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XUniqueCellFormatRangesSupplier.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;
using css::uno::Sequence;
using CellRange = Reference<css::table::XCellRange>;

class BlockReader {
 public:
    BlockReader(const DocumentRef& document, const SheetRef& sheet, const CellArea& area)
        : m_Document(document),
          m_Cells(sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom)),
          m_Area(area),
          m_Values(area.rows(), area.columns()) {}

    [[nodiscard]] ValueGrid read() {
        readData();
        if (m_SawEmptyText) {
            markEmptyCells();
        }
        if (m_SawZeroOrOne) {
            markBooleans();
            markBooleanFormulas();
        }
        return std::move(m_Values);
    }

 private:
    void readData() {
        const Sequence<Sequence<Any>> rows = query<css::sheet::XCellRangeData>(m_Cells)->getDataArray();
        for (sal_Int32 column = 0; column < m_Area.columns(); ++column) {
            const std::span<CellValue> values = m_Values.column(column + 1);
            for (sal_Int32 row = 0; row < rows.getLength(); ++row) {
                values[static_cast<std::size_t>(row)] = valueOf(rows[row][column], column, row);
            }
        }
    }

    [[nodiscard]] CellValue valueOf(const Any& cell, sal_Int32 column, sal_Int32 row) {
        switch (cell.getValueTypeClass()) {
            case css::uno::TypeClass_DOUBLE: {
                const double number = *static_cast<const double*>(cell.getValue());
                m_SawZeroOrOne = m_SawZeroOrOne || number == 0 || number == 1;
                return number;
            }
            case css::uno::TypeClass_STRING: {
                const OUString& text = *static_cast<const OUString*>(cell.getValue());
                m_SawEmptyText = m_SawEmptyText || text.isEmpty();
                return Text(toUtf8(text));
            }
            default:
                return officeError(m_Cells->getCellByPosition(column, row)->getError());
        }
    }

    /// Visits the cells of the block that belong to a query's answer.
    void visit(const Reference<css::sheet::XSheetCellRanges>& ranges, const auto& cell) {
        for (const css::table::CellRangeAddress& address : ranges->getRangeAddresses()) {
            for (sal_Int32 column = address.StartColumn; column <= address.EndColumn; ++column) {
                for (sal_Int32 row = address.StartRow; row <= address.EndRow; ++row) {
                    cell(m_Values(row - m_Area.top + 1, column - m_Area.left + 1), column, row);
                }
            }
        }
    }

    void markEmptyCells() {
        visit(query<css::sheet::XCellRangesQuery>(m_Cells)->queryEmptyCells(),
              [](CellValue& value, sal_Int32, sal_Int32) { value = Empty(); });
    }

    static void turnIntoBoolean(CellValue& value) {
        if (const auto* number = std::get_if<double>(&value)) {
            value = *number != 0;
        }
    }

    [[nodiscard]] bool isLogical(const auto& cells) {
        if (!m_Formats.is()) {
            m_Formats = query<css::util::XNumberFormatsSupplier>(m_Document)->getNumberFormats();
        }
        sal_Int32 key = 0;
        property(cells, "NumberFormat") >>= key;
        sal_Int16 type = 0;
        property(m_Formats->getByKey(key), "Type") >>= type;
        return (type & css::util::NumberFormat::LOGICAL) != 0;
    }

    /// A typed TRUE is a number under a format of its own.
    void markBooleans() {
        const auto groups =
            query<css::sheet::XUniqueCellFormatRangesSupplier>(m_Cells)->getUniqueCellFormatRanges();
        for (sal_Int32 i = 0; i < groups->getCount(); ++i) {
            const Reference<css::sheet::XSheetCellRanges> group(groups->getByIndex(i),
                                                                css::uno::UNO_QUERY_THROW);
            if (isLogical(group)) {
                visit(group, [](CellValue& value, sal_Int32, sal_Int32) { turnIntoBoolean(value); });
            }
        }
    }

    /// A formula that gives TRUE shows it under the general format: only the cell itself knows.
    void markBooleanFormulas() {
        const auto formulas =
            query<css::sheet::XCellRangesQuery>(m_Cells)->queryFormulaCells(css::sheet::FormulaResult::VALUE);
        visit(formulas, [this](CellValue& value, sal_Int32 column, sal_Int32 row) {
            const auto* number = std::get_if<double>(&value);
            const bool candidate = number != nullptr && (*number == 0 || *number == 1);
            if (candidate && isLogical(m_Cells->getCellByPosition(column - m_Area.left, row - m_Area.top))) {
                turnIntoBoolean(value);
            }
        });
    }

    DocumentRef m_Document;
    CellRange m_Cells;
    CellArea m_Area;
    ValueGrid m_Values;
    Reference<css::util::XNumberFormats> m_Formats;
    bool m_SawEmptyText = false;
    bool m_SawZeroOrOne = false;
};

}  // namespace

ValueGrid readCells(const DocumentRef& document, const SheetRef& sheet, const CellArea& area) {
    return BlockReader(document, sheet, area).read();
}

}  // namespace TBVNonPara::calc
